// The command line of a panel's process is read as the plain reader reads it, and what is read is
// handed on so that it is read the same again and can do no harm in the page.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "app/child_command_line.h"
#include "app/panel_script.h"
#include "tests/support/reference_settings.h"

namespace {

using namespace ravelin;

void check(bool holds) {
    if (!holds) std::abort();
}

ChildFields reference(const std::string& line) {
    ChildFields fields{"Panel", "", std::nullopt, "ravelin"};
    const std::string begin = "--child ";
    const auto place = line.find(begin);
    if (place == std::string::npos) return fields;
    std::string text = line.substr(place + begin.size());
    text.erase(std::remove(text.begin(), text.end(), '"'), text.end());
    const auto pieces = test::referenceSplit(text, '|');
    const auto count = pieces.size();
    if (count > 0) fields.title = pieces[0];
    if (count > 1) fields.panelId = pieces[1];
    if (count > 3) {
        const auto x = test::standardInt(pieces[2]);
        const auto y = test::standardInt(pieces[3]);
        if (x && y) fields.tornOffAt = platform::Point{x.value, y.value};
    }
    if (count > 4) fields.themeKey = pieces[4];
    return fields;
}

// Nothing of the text ends the script element or begins another one.
void checkScript(const ChildFields& fields) {
    const std::string end = "</script></body>";
    auto script = panelScript(fields.panelId, fields.themeKey);
    check(script.starts_with("<script>") && script.ends_with(end));
    script = script.substr(8, script.size() - 8 - end.size());
    check(script.find("</") == std::string::npos && script.find("<!") == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string line(reinterpret_cast<const char*>(data), size);
    const auto fields = readChildFields(line);
    check(fields == reference(line));
    checkScript(fields);
    if (fields.tornOffAt) {
        const auto corner = windowCorner(*fields.tornOffAt);
        check(corner.x < fields.tornOffAt->x + std::int64_t{1} && corner.y <= fields.tornOffAt->y);
    }

    const auto arguments = childArguments(fields);
    check(arguments.starts_with("--child \"") && arguments.ends_with('"'));
    const auto handedOn = readChildFields(arguments);
    check(handedOn.tornOffAt == fields.tornOffAt && handedOn.panelId == fields.panelId);
    check(childArguments(handedOn) == arguments);
    return 0;
}
