// Small text helpers without any knowledge of the program.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ravelin {

// The argument text of a bound page method with every "[", "]" and double quote removed, wherever
// it stands. Setters read their arguments this way instead of parsing JSON; nothing is unescaped.
std::string flattenArgs(std::string_view args);

// Splits on one delimiter the way repeated line reading does: an empty piece between two
// delimiters is kept, a trailing delimiter adds none, and an empty text has no pieces.
std::vector<std::string> splitList(std::string_view text, char delimiter);

// The same one piece at a time: takes the next piece and its delimiter off the text. Nothing at
// the end.
std::optional<std::string_view> nextPiece(std::string_view& text, char delimiter);

// The same into a fixed number of places: fills them from the front, leaves out the pieces that no
// place is left for, and returns the filled ones.
std::span<std::string_view> splitInto(std::span<std::string_view> pieces, std::string_view text,
                                      char delimiter);

// The text as a JSON string: double quote, backslash and the control characters with a letter of
// their own are escaped with a backslash, other characters below 32 as \u00XX (lower-case
// hexadecimal). Every other byte stands as it is, so UTF-8 stays UTF-8.
std::string jsonQuote(std::string_view text);

}  // namespace ravelin
