// A text as the input of rapidjson's reader, read without copying.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ravelin {

// The reader parses "in situ", which means that it hands every character of a string back to its
// input. This input drops them, so nothing is written, and uses the occasion to run ahead over the
// string in blocks, many times faster than one by one.
//
// The reader is asked for the structure alone. What stands in strings and numbers is read as text
// by whoever wants it, so none of it can make a text malformed that is well-formed otherwise: the
// reader sees every string as an empty one and every number as 0. Without that, a number beyond the
// range of a double would be an error wherever it stands, and so would one of the two halves of a
// surrogate pair, but not the other.
class JsonSource {
  public:
    using Ch = char;

    explicit JsonSource(std::string_view text) : text_(text) {}

    // The reader takes a zero for the end. A zero within the text is malformed JSON, which shows
    // by atEnd() after reading.
    char Peek() const {
        if (atEnd()) return '\0';
        if (brokenNumber_) return notJson;
        return !inString_ && isDigit(text_[position_]) ? '0' : text_[position_];
    }
    char Take() {
        const char taken = Peek();
        if (taken == '0' && !inString_)
            skipNumber();
        else
            ++position_;
        return taken;
    }
    std::size_t Tell() const { return position_; }
    bool atEnd() const { return position_ == text_.size(); }

    char* PutBegin() {
        stringBegin_ = position_;
        inString_ = true;
        skipString();
        return nullptr;
    }
    // The zero with which the reader ends a string is all it has to put.
    void Put(char /*c*/) {}
    std::size_t PutEnd(char*) {
        inString_ = false;
        return 1;
    }

    // Where the characters of the last string begin, behind its opening quote.
    std::size_t stringBegin() const { return stringBegin_; }

  private:
    static bool isPlain(char c) {
        return c != '"' && c != '\\' && static_cast<std::uint8_t>(c) >= 0x20;
    }
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    static bool isHexDigit(char c) {
        return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    }

    // Stands at the closing quote then, or at what is malformed.
    void skipString() {
        do
            skipPlain();
        while (skipEscape());
    }

    void skipPlain() {
        // Counted without branches, so that the compiler looks at many characters at a time.
        constexpr std::size_t block = 64;
        while (text_.size() - position_ >= block) {
            const auto characters = text_.substr(position_, block);
            std::uint8_t plain = 0;
            for (std::size_t i = 0; i < block; ++i)
                plain = static_cast<std::uint8_t>(plain + static_cast<int>(isPlain(characters[i])));
            if (plain != block) break;
            position_ += block;
        }
        while (!atEnd() && isPlain(text_[position_]))
            ++position_;
    }

    bool skipEscape() {
        const auto escape = text_.substr(position_, 6);
        if (escape.size() < 2 || escape[0] != '\\') return false;
        const bool unicode = escape[1] == 'u';
        if (unicode && (escape.size() < 6 || !isHexDigit(escape[2]) || !isHexDigit(escape[3]) ||
                        !isHexDigit(escape[4]) || !isHexDigit(escape[5])))
            return false;
        if (!unicode && std::string_view("\"\\/bfnrt").find(escape[1]) == std::string_view::npos)
            return false;
        position_ += unicode ? 6 : 2;
        return true;
    }

    void skipDigits() {
        while (!atEnd() && isDigit(text_[position_]))
            ++position_;
    }
    // Digits without a leading zero, then perhaps a fraction, then perhaps an exponent. The reader
    // would join what else looks like a part of a number to the 0 that it sees.
    void skipNumber() {
        if (text_[position_] == '0')
            ++position_;
        else
            skipDigits();
        skipPart(".", "");
        skipPart("eE", "+-");
        brokenNumber_ = isAt(position_, ".eE+-0123456789");
    }
    void skipPart(std::string_view begins, std::string_view signs) {
        if (!isAt(position_, begins)) return;
        std::size_t digits = position_ + 1;
        if (isAt(digits, signs)) ++digits;
        if (digits >= text_.size() || !isDigit(text_[digits])) return;
        position_ = digits;
        skipDigits();
    }
    bool isAt(std::size_t place, std::string_view characters) const {
        return place < text_.size() && characters.find(text_[place]) != std::string_view::npos;
    }

    // A character that no JSON text holds outside of strings.
    static constexpr char notJson = '\x01';

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t stringBegin_ = 0;
    bool inString_ = false;
    bool brokenNumber_ = false;
};

}  // namespace ravelin
