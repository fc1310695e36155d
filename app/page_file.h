// The page: one HTML file beside the executable, with its scripts inlined.
//
// The view never loads a file from disk: it is handed the finished text.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace ravelin {

// An inlining that would make the page longer than this is not done.
inline constexpr std::size_t pageSizeLimit = 2'097'152;

// "ui\index.html" in the executable's folder.
std::filesystem::path pagePath(const std::filesystem::path& executableFolder);

// The page's text, or nothing when the file cannot be opened.
std::optional<std::string> readPage(const std::filesystem::path& executableFolder);

// Replaces the page's first reference to each script of the inline list by the script itself. A
// script that is missing, too long, or that would end its element early stays a reference.
std::string assemblePage(std::string page, const std::filesystem::path& executableFolder);

}  // namespace ravelin
