// Look-ups in the text of a JSON object, without building a tree of it: values are views into the
// text, so a document of many megabytes costs no more memory than its own.
//
// A text counts as an object only when the whole of it is one well-formed JSON object with nothing
// but white space around it. Strings may hold any byte above 31, and either half of a surrogate
// pair alone. Numbers may be of any size: they are texts here. Nesting deeper than jsonNestingCap
// counts as malformed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ravelin {

inline constexpr std::size_t jsonNestingCap = 1'000'000;

// A value as its readers want it: a string unescaped, any other value as its raw text. A missing
// value is an empty text. Views the object's text, which must outlive it; only a string with
// escapes has a copy of its own.
class JsonText {
  public:
    JsonText() = default;
    // `token` is the value as it stands in well-formed JSON, with the quotes of a string.
    explicit JsonText(std::string_view token);

    std::string_view view() const { return unescaped_ ? *unescaped_ : raw_; }

  private:
    std::string_view raw_;
    std::optional<std::string> unescaped_;
};

enum class JsonWalk : std::uint8_t { complete, stopped, malformed };

// Calls `visit` with the key and the value of each top-level member, in the order of the text and
// with repeated keys, until it returns false. Members before the place where a text turns out to be
// malformed have been visited by then.
using JsonMemberVisitor = std::function<bool(const JsonText& key, std::string_view valueToken)>;
JsonWalk walkJsonObject(std::string_view objectText, const JsonMemberVisitor& visit);

// The values of the keys at the top level of the text; of a repeated key the first one counts. All
// are missing when the text is no object.
template <std::size_t N>
std::array<JsonText, N> lookUpJson(std::string_view objectText,
                                   const std::array<std::string_view, N>& keys) {
    std::array<std::optional<std::string_view>, N> tokens;
    const auto walk = walkJsonObject(objectText, [&](const JsonText& key, std::string_view token) {
        for (std::size_t i = 0; i < N; ++i)
            if (!tokens[i] && key.view() == keys[i]) tokens[i] = token;
        return true;
    });
    std::array<JsonText, N> values;
    if (walk != JsonWalk::complete) return values;
    for (std::size_t i = 0; i < N; ++i)
        if (tokens[i]) values[i] = JsonText(*tokens[i]);
    return values;
}

}  // namespace ravelin
