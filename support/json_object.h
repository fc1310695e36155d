// A JSON object built by appending members in the order of the calls, without blanks.
#pragma once

#include <charconv>
#include <concepts>
#include <iterator>
#include <string>
#include <string_view>

#include "support/text.h"

namespace ravelin {

class JsonObject {
  public:
    JsonObject& number(std::string_view key, std::integral auto value) {
        return raw(key, std::to_string(value));
    }
    // Six significant digits without trailing zeros, whatever the locale.
    JsonObject& number(std::string_view key, float value) {
        char digits[32];
        const auto end =
            std::to_chars(digits, std::end(digits), value, std::chars_format::general, 6);
        return raw(key, std::string_view(digits, static_cast<std::size_t>(end.ptr - digits)));
    }
    JsonObject& flag(std::string_view key, bool value) {
        return raw(key, value ? "true" : "false");
    }
    JsonObject& text(std::string_view key, std::string_view value) {
        return raw(key, jsonQuote(value));
    }
    // A list of texts as an array of strings.
    template <class Texts>
    JsonObject& list(std::string_view key, const Texts& texts) {
        std::string array = "[";
        for (const auto& item : texts) {
            if (array.size() > 1) array += ',';
            array += jsonQuote(item);
        }
        return raw(key, array + ']');
    }
    // A value that is JSON text already.
    JsonObject& raw(std::string_view key, std::string_view value) {
        text_ += text_.empty() ? '{' : ',';
        text_ += jsonQuote(key);
        text_ += ':';
        text_ += value;
        return *this;
    }
    std::string finish() const { return (text_.empty() ? "{" : text_) + '}'; }

  private:
    std::string text_;
};

}  // namespace ravelin
