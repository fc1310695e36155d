// Whatever a page gives to a method: settings methods do what a plain model of them does, answers
// are JSON, and the profiles stay sound.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "app/child_command_line.h"
#include "app/child_methods.h"
#include "app/detach_panel.h"
#include "app/page_methods.h"
#include "persistence/app_settings.h"
#include "persistence/profiles.h"
#include "tests/support/engine_reset.h"
#include "tests/support/environment.h"
#include "tests/support/reference_actions.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace ravelin;

void check(bool holds) {
    if (!holds) std::abort();
}

struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const Size&) const = default;
};

// What the methods asked of the machine around them.
std::vector<Size> resized;
std::vector<std::pair<std::string, std::string>> forwarded;

void resize(std::int32_t width, std::int32_t height) {
    resized.push_back({width, height});
}

// A panel's process gets what was asked for, but for what would end a field.
bool startPanel(const std::string& panelId, const std::string& arguments) {
    const auto fields = readChildFields(arguments);
    check(isPanelId(panelId) && fields.panelId == panelId && fields.tornOffAt.has_value());
    check(!fields.title.empty() && !fields.title.starts_with('-') && !fields.themeKey.empty());
    check(std::count(arguments.begin(), arguments.end(), '"') == 2);
    return true;
}

const std::vector<PageMethod>& methods() {
    static const auto all = [] {
        auto list = mainPageMethods({
            .resizeWindow = resize,
            .openAddress = [](const std::string& address) { check(address.starts_with("https:")); },
            .collectEndedPanels = [] { return std::vector<std::string>{"panel-ui"}; },
            .writeStatusFile = [](const std::string&) {},
            .startUpdate = [](const std::string&) {},
            .detachPanel =
                [](const std::string& args) {
                    return detachPanel(args, {.isOut = [](std::string_view) { return false; },
                                              .pipeIsServed = [] { return true; },
                                              .saveSession = [] {},
                                              .start = startPanel});
                },
        });
        auto childs = childPageMethods({
            .forward = [](std::string_view method,
                          std::string_view value) { forwarded.emplace_back(method, value); },
            .resizeWindow = resize,
            .beginDrag = [] {},
            .close = [] {},
            .savedStatus = [] { return std::string("{}"); },
            .savedSettings = [] { return std::string("{}"); },
        });
        std::move(childs.begin(), childs.end(), std::back_inserter(list));
        std::erase_if(list, [](const PageMethod& method) { return !method.call; });
        return list;
    }();
    return all;
}

std::string flattened(std::string args) {
    for (const char c : {'[', ']', '"'})
        args.erase(std::remove(args.begin(), args.end(), c), args.end());
    return args;
}

bool isAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 128; });
}

void checkSize(const std::string& args) {
    const auto pieces = test::referenceSplit(flattened(args), ',');
    std::vector<Size> expected;
    if (pieces.size() >= 2) {
        const auto width = test::standardInt(pieces[0]);
        const auto height = test::standardInt(pieces[1]);
        if (width && height) expected.push_back({width.value, height.value});
    }
    check(resized == expected);
}

void checkProfiles() {
    check(!profiles.empty() && profiles.size() <= 3);
    check(currentProfile >= 0 && static_cast<std::size_t>(currentProfile) < profiles.size());
    check(profiles[0].name == defaultProfileName);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return -1;
    static const test::TempFolder folder;
    test::setEnvironment("LOCALAPPDATA", folder.path());
    const PageMethod& method = methods()[data[0] % methods().size()];
    const bool ofChild = data[0] % methods().size() >= 25;
    const std::string name(method.name);
    const std::string args(reinterpret_cast<const char*>(data + 1), size - 1);

    test::resetEngine();
    appSettings = {};
    resized.clear();
    forwarded.clear();
    profiles.push_back({"Second", "", {}});
    const auto before = test::liveState();
    const PageReply reply = callPageMethod(method, args);

    checkProfiles();
    if (isAscii(args) && !reply.json.empty()) check(nlohmann::json::accept(reply.json));
    if (name == "resizeWindow") checkSize(args);
    if (ofChild) {
        check(test::liveState() == before);
        for (const auto& [to, value] : forwarded)
            check(to == name && (value.empty() || value == flattened(args)));
        return 0;
    }
    auto expected = before;
    if (test::referenceAction(expected, name, flattened(args), false))
        check(test::liveState() == expected);
    return 0;
}
