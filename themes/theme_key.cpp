#include "themes/theme_key.h"

#include <string_view>

#include "support/line_reader.h"

namespace ravelin {

std::string readThemeKey(const std::string& path) {
    auto lines = openLines(path);
    std::string_view key;
    if (!lines || !lines->next(key) || key.empty()) return defaultThemeKey;
    return std::string(key);
}

}  // namespace ravelin
