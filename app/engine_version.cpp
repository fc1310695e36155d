#include "app/engine_version.h"

#include <array>
#include <charconv>

namespace ravelin {
namespace {

// The view library looks at nothing but the third number.
constexpr int oldestBuild = 1150;

}  // namespace

std::string engineVersionOf(std::string_view folder) {
    const std::string_view name = folder.substr(folder.find_last_of('\\') + 1);
    std::array<int, 4> numbers{};
    const char* at = name.data();
    const char* const end = name.data() + name.size();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i > 0 && (at == end || *at++ != '.')) return {};
        const auto [next, error] = std::from_chars(at, end, numbers[i]);
        if (error != std::errc() || numbers[i] < 0) return {};
        at = next;
    }
    if (at != end || numbers[2] < oldestBuild) return {};
    return std::string(name);
}

}  // namespace ravelin
