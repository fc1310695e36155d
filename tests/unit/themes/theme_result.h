// A theme check with all that it gives, for tests to compare.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "themes/theme_file.h"

namespace ravelin::samples {

struct Result {
    bool valid = false;
    ThemeRecord theme;
    std::string error;
    std::int32_t pieces = -1;
    bool font = false;
};

inline Result check(std::string_view json) {
    Result result;
    result.valid = validateTheme(json, result.theme, &result.error, &result.pieces, &result.font);
    return result;
}

// What a user of the console check would read: "OK ..." or the message.
inline std::string verdict(const Result& result) {
    if (!result.valid) return result.error;
    if (!result.theme.hasSkin) return "OK colours";
    return "OK skin " + std::to_string(result.pieces) + " pieces" + (result.font ? " +font" : "");
}

inline std::string verdict(std::string_view json) {
    return verdict(check(json));
}

}  // namespace ravelin::samples
