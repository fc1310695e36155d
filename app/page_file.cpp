#include "app/page_file.h"

#include <fstream>
#include <iterator>
#include <string_view>

namespace ravelin {
namespace {

constexpr std::string_view inlineList[] = {"vendor/Sortable.min.js"};
constexpr std::string_view openTag = "<script>";
constexpr std::string_view closeTag = "</script>";

std::optional<std::string> readWhole(const std::filesystem::path& path, std::ios::openmode mode) {
    std::ifstream file(path, mode);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace

std::filesystem::path pagePath(const std::filesystem::path& executableFolder) {
    return executableFolder / "ui" / "index.html";
}

std::optional<std::string> readPage(const std::filesystem::path& executableFolder) {
    return readWhole(pagePath(executableFolder), std::ios::in);
}

std::string assemblePage(std::string page, const std::filesystem::path& executableFolder) {
    for (const std::string_view path : inlineList) {
        const std::string reference = "<script src=\"" + std::string(path) + "\"></script>";
        const auto place = page.find(reference);
        if (place == std::string::npos) continue;
        const auto script =
            readWhole(executableFolder / "ui" / std::filesystem::path(path).make_preferred(),
                      std::ios::in | std::ios::binary);
        if (!script || script->find(closeTag) != std::string::npos) continue;
        const auto length =
            page.size() - reference.size() + openTag.size() + closeTag.size() + script->size();
        if (length > pageSizeLimit) continue;
        page.replace(place, reference.size(),
                     std::string(openTag).append(*script).append(closeTag));
    }
    return page;
}

}  // namespace ravelin
