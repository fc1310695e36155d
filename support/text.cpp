#include "support/text.h"

#include <algorithm>

namespace ravelin {

std::string flattenArgs(std::string_view args) {
    std::string flat;
    flat.reserve(args.size());
    std::copy_if(args.begin(), args.end(), std::back_inserter(flat),
                 [](char c) { return c != '[' && c != ']' && c != '"'; });
    return flat;
}

std::vector<std::string> splitList(std::string_view text, char delimiter) {
    std::vector<std::string> pieces;
    while (const auto piece = nextPiece(text, delimiter))
        pieces.emplace_back(*piece);
    return pieces;
}

std::optional<std::string_view> nextPiece(std::string_view& text, char delimiter) {
    if (text.empty()) return std::nullopt;
    const auto piece = text.substr(0, text.find(delimiter));
    text.remove_prefix(std::min(text.size(), piece.size() + 1));
    return piece;
}

std::span<std::string_view> splitInto(std::span<std::string_view> pieces, std::string_view text,
                                      char delimiter) {
    std::size_t count = 0;
    while (count < pieces.size()) {
        const auto piece = nextPiece(text, delimiter);
        if (!piece) break;
        pieces[count++] = *piece;
    }
    return pieces.first(count);
}

std::string jsonQuote(std::string_view text) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char c : text) {
        switch (c) {
            case '"':
                quoted += "\\\"";
                break;
            case '\\':
                quoted += "\\\\";
                break;
            case '\b':
                quoted += "\\b";
                break;
            case '\t':
                quoted += "\\t";
                break;
            case '\n':
                quoted += "\\n";
                break;
            case '\f':
                quoted += "\\f";
                break;
            case '\r':
                quoted += "\\r";
                break;
            default:
                if (const auto code = static_cast<unsigned char>(c); code < 0x20) {
                    quoted += "\\u00";
                    quoted += digits[code >> 4];
                    quoted += digits[code & 15];
                } else {
                    quoted += c;
                }
        }
    }
    quoted += '"';
    return quoted;
}

}  // namespace ravelin
