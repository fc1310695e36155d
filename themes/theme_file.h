// Theme files: JSON documents that restyle the page with colours, a font stack and, if they bring
// one, a skin. A theme is checked whole before any of it is used.
//
// A failure is one message for the user. Checking holds the file and views into it; no image or
// font is decoded beyond the few bytes that are looked at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>

namespace ravelin {

inline constexpr std::size_t themeFileCap = 12'582'912;  // bytes, "12 MB" to the user
inline constexpr std::size_t themeNameCap = 40;          // bytes

// A theme that passed every check.
struct ThemeRecord {
    std::string name;
    // Colours, as the file writes them.
    std::string bgMain;
    std::string bgPanel;
    std::string bgHeader;
    std::string accent;
    std::string accentHover;
    std::string text;
    std::string font;      // one of the two font stacks
    bool hasSkin = false;  // at least one piece or the skin font
    std::string sourcePath;
};

// Reads and checks the file; on success `out` holds the theme, otherwise it is left alone and
// `error` receives the message. The pointers may be null. `pieceCount` and `hasFont` receive what
// the skin brings, 0 and false without a skin or on failure. The path is given to the system as it
// is, in the code page of the process.
bool readThemeFile(const std::string& path, ThemeRecord& out, std::string* error = nullptr,
                   std::int32_t* pieceCount = nullptr, bool* hasFont = nullptr);

// The same for a text that was read already; `sourcePath` stays empty.
bool validateTheme(std::string_view jsonText, ThemeRecord& out, std::string* error = nullptr,
                   std::int32_t* pieceCount = nullptr, bool* hasFont = nullptr);

// Reads a whole stream of 1 to themeFileCap bytes. Gives what is wrong, or an empty text.
std::string readThemeText(std::istream& in, std::string& text);

}  // namespace ravelin
