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
    while (!text.empty()) {
        const auto end = text.find(delimiter);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return pieces;
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
