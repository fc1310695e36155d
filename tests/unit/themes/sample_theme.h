// Makes the text of theme files for tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/unit/themes/plain_base64.h"
#include "tests/unit/themes/sample_png.h"

namespace ravelin::samples {

// Bit by bit, so that it shares nothing with the decoder.
inline std::string base64(const Bytes& bytes) {
    std::string text;
    for (std::size_t bit = 0; bit < bytes.size() * 8; bit += 6) {
        std::size_t sextet = 0;
        for (std::size_t i = bit; i < bit + 6; ++i)
            sextet = sextet << 1 |
                     (i / 8 < bytes.size() ? static_cast<unsigned>(bytes[i / 8] >> (7 - i % 8)) & 1U
                                           : 0U);
        text += base64Alphabet[sextet];
    }
    while (text.size() % 4 != 0)
        text += '=';
    return text;
}

inline std::string jsonString(std::string_view text) {
    return std::string(1, '"').append(text).append(1, '"');
}

// The text of a JSON object whose values are given as JSON text.
struct Object {
    std::vector<std::pair<std::string, std::string>> members;

    // Replaces the value of the key, or adds it at the end.
    Object& set(std::string_view key, std::string value) {
        for (auto& member : members)
            if (member.first == key) {
                member.second = std::move(value);
                return *this;
            }
        return add(key, std::move(value));
    }
    // Adds the key at the end, even if it is there already.
    Object& add(std::string_view key, std::string value) {
        members.emplace_back(key, std::move(value));
        return *this;
    }
    Object& remove(std::string_view key) {
        std::erase_if(members, [&](const auto& member) { return member.first == key; });
        return *this;
    }
    std::string json() const {
        std::string text = "{";
        for (const auto& [key, value] : members) {
            if (text.size() > 1) text += ',';
            text.append(jsonString(key)).append(":").append(value);
        }
        return text += '}';
    }
};

inline constexpr char proportionalFonts[] = "'Segoe UI', Tahoma, Geneva, Verdana, sans-serif";
inline constexpr char fixedPitchFonts[] = "'Consolas', 'Courier New', monospace";

inline Object coloursOnly() {
    return Object{{{"name", jsonString("Harbour")},
                   {"bgMain", jsonString("#101418")},
                   {"bgPanel", jsonString("#1a2026")},
                   {"bgHeader", jsonString("#ABC")},
                   {"accent", jsonString("rgb(0, 122,255)")},
                   {"accentHover", jsonString("#3395ff")},
                   {"text", jsonString("#fff")},
                   {"font", jsonString(proportionalFonts)}}};
}

inline std::string withSkin(const Object& skin) {
    return coloursOnly().set("format", "2").set("skin", skin.json()).json();
}

inline Object skinOf(const Object& pieces) {
    return Object{{{"template", jsonString("1")}, {"pieces", pieces.json()}}};
}

inline std::string withPieces(const Object& pieces) {
    return withSkin(skinOf(pieces));
}

inline Bytes fontOfBytes(std::size_t size, std::string_view magic = "OTTO") {
    Bytes bytes;
    append(bytes, magic);
    bytes.resize(size, 0x5A);
    return bytes;
}

inline std::string withFont(std::string_view fontValue) {
    return withSkin(Object{{{"template", jsonString("1")}, {"font", std::string(fontValue)}}});
}

struct KnownPiece {
    std::string_view name;
    std::uint32_t width;
    std::uint32_t height;
};

inline constexpr KnownPiece knownPieces[] = {
    {"window", 1024, 768},
    {"panel", 256, 256},
    {"panel-header", 256, 78},
    {"modal", 256, 256},
    {"modal-header", 256, 78},
    {"button", 192, 64},
    {"button-accent", 192, 64},
    {"button-danger", 192, 64},
    {"button-small", 48, 48},
    {"field", 128, 64},
    {"switch", 68, 40},
    {"switch-knob", 28, 28},
    {"radio", 52, 52},
    {"scroll-track", 16, 256},
    {"scroll-thumb", 16, 128},
    {"button.on", 192, 64},
    {"button-accent.on", 192, 64},
    {"button-danger.on", 192, 64},
    {"button-small.on", 48, 48},
    {"field.on", 128, 64},
    {"switch.on", 68, 40},
    {"switch-knob.on", 28, 28},
    {"radio.on", 52, 52},
    {"scroll-thumb.on", 16, 128},
};

}  // namespace ravelin::samples
