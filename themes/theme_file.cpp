#include "themes/theme_file.h"

#include <fstream>

namespace ravelin {
namespace {

// A folder can be opened away from Windows, but not be read.
bool canBeRead(std::ifstream& file) {
    if (!file) return false;
    file.peek();
    const bool readable = !file.bad();
    file.clear();
    return readable;
}

}  // namespace

std::string readThemeText(std::istream& in, std::string& text) {
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    if (size < 1) return "file is empty";
    if (size > static_cast<std::streamoff>(themeFileCap)) return "file exceeds the 12 MB cap";
    text.resize(static_cast<std::size_t>(size));
    in.seekg(0);
    if (!in.read(text.data(), size)) return "could not read file";
    return {};
}

bool readThemeFile(const std::string& path, ThemeRecord& out, std::string* error,
                   std::int32_t* pieceCount, bool* hasFont) {
    std::string text;
    std::ifstream file(path, std::ios::binary);
    std::string problem = canBeRead(file) ? readThemeText(file, text) : "could not open file";
    if (!problem.empty()) {
        if (error) *error = std::move(problem);
        if (pieceCount) *pieceCount = 0;
        if (hasFont) *hasFont = false;
        return false;
    }
    if (!validateTheme(text, out, error, pieceCount, hasFont)) return false;
    out.sourcePath = path;
    return true;
}

}  // namespace ravelin
