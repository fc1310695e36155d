#include "app/page_arguments.h"

#include "support/number_text.h"
#include "support/text.h"

namespace ravelin {

std::optional<WindowSize> readSizeArgument(std::string_view args) {
    const auto pieces = splitList(flattenArgs(args), ',');
    if (pieces.size() < 2) return std::nullopt;
    const auto width = toInt(pieces[0]);
    const auto height = toInt(pieces[1]);
    if (!width || !height) return std::nullopt;
    return WindowSize{width.value, height.value};
}

}  // namespace ravelin
