// The key of the theme in use, which detached panels are given so that they look like the main
// window.
#pragma once

#include <string>

namespace ravelin {

// The built-in theme, to which the page also falls back for a key that it does not know.
inline constexpr char defaultThemeKey[] = "ravelin";

// Set once from readThemeKey while the process starts, before any other thread runs; only read
// afterwards.
inline std::string currentThemeKey = defaultThemeKey;

// The first line of the file, or the default key when there is no such file or the line is empty.
std::string readThemeKey(const std::string& path);

}  // namespace ravelin
