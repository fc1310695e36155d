// A text as the input of rapidjson's reader, read without copying.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ravelin {

// The reader parses "in situ", which means that it hands every character of a string back to its
// input. This input drops them, so nothing is written, and uses the occasion to run ahead over
// plain characters in blocks, many times faster than one by one.
class JsonSource {
  public:
    using Ch = char;

    explicit JsonSource(std::string_view text) : text_(text) {}

    // The reader takes a zero for the end. A zero within the text is malformed JSON, which shows
    // by atEnd() after reading.
    char Peek() const { return atEnd() ? '\0' : text_[position_]; }
    char Take() { return text_[position_++]; }
    std::size_t Tell() const { return position_; }
    bool atEnd() const { return position_ == text_.size(); }

    char* PutBegin() {
        stringBegin_ = position_;
        skipPlain();
        return nullptr;
    }
    void Put(char c) {
        // The reader ends a string with a zero, behind its closing quote.
        if (c != '\0') skipPlain();
    }
    std::size_t PutEnd(char*) const { return 1; }  // the zero alone

    // Where the characters of the last string begin, behind its opening quote.
    std::size_t stringBegin() const { return stringBegin_; }

  private:
    static bool isPlain(char c) {
        return c != '"' && c != '\\' && static_cast<std::uint8_t>(c) >= 0x20;
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

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t stringBegin_ = 0;
};

}  // namespace ravelin
