#include "tests/support/input_script.h"

#include <charconv>
#include <cmath>
#include <map>
#include <sstream>
#include <stdexcept>

#include "input/capture.h"
#include "input/command_pass.h"
#include "input/engine_state.h"
#include "input/requests.h"
#include "tests/support/simulated_desktop.h"

namespace ravelin::test {
namespace {

constexpr std::string_view down = "↓";
constexpr std::string_view up = "↑";

// The requests raised since the last call, each introduced by ':' or '+'.
std::string raisedRequests() {
    const std::pair<Requests::Flag&, std::string_view> flags[] = {
        {requests.recToggle, "recToggle"},
        {requests.startRecording, "startRecording"},
        {requests.continueRecording, "continueRecording"},
        {requests.undoContinuation, "undoContinuation"},
        {requests.stopRecording, "stopRecording"},
        {requests.playToggle, "playToggle"},
        {requests.startPlayback, "startPlayback"},
        {requests.stopPlayback, "stopPlayback"},
        {requests.clickerToggle, "clickerToggle"},
        {requests.clickerStart, "clickerStart"},
        {requests.clickerStop, "clickerStop"},
        {requests.keySpamToggle, "keySpamToggle"},
        {requests.keySpamStart, "keySpamStart"},
        {requests.keySpamStop, "keySpamStop"},
    };
    std::string text;
    for (const auto& [flag, name] : flags)
        if (takeRequest(flag)) text.append(text.empty() ? ":" : "+").append(name);
    return text;
}

std::int32_t number(std::string_view text) {
    std::int32_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        throw std::invalid_argument("not a number: " + std::string(text));
    return value;
}

platform::Point pointOf(std::string_view text) {
    const auto comma = text.find(',');
    return {number(text.substr(0, comma)), number(text.substr(comma + 1))};
}

// A word taken apart.
struct Word {
    bool injected = false;
    std::string_view name;
    enum class Change { none, press, release } change = Change::none;
    std::string_view place;  // behind "@"

    explicit Word(std::string_view text) {
        if ((injected = text.starts_with('~'))) text.remove_prefix(1);
        if (const auto at = text.find('@'); at != std::string_view::npos) {
            place = text.substr(at + 1);
            text = text.substr(0, at);
        }
        if (text.ends_with(down)) change = Change::press;
        if (text.ends_with(up)) change = Change::release;
        if (change != Change::none) text.remove_suffix(down.size());
        name = text;
    }
    platform::Point point() const { return place.empty() ? platform::Point{} : pointOf(place); }
};

bool swallowed(const Word& word) {
    const auto code = codeOf(word.name);
    if (word.change == Word::Change::none)
        throw std::invalid_argument("neither pressed nor released: " + std::string(word.name));
    const bool press = word.change == Word::Change::press;
    const auto time = static_cast<std::uint32_t>(std::llround(desktop.now() * 1000));
    if (code > 6) return onKeyboardEvent({code, press, word.injected, time});
    return onMouseEvent({.kind = press ? MouseEvent::Kind::press : MouseEvent::Kind::release,
                         .button = code,
                         .point = word.point(),
                         .injected = word.injected,
                         .time = time});
}

// Whether the word is motion; if so it is fed.
bool feedMotion(const Word& word) {
    if (word.name == "raw") {
        const auto motion = word.point();
        onRawMotion(motion.x, motion.y);
    } else if (word.name == "move") {
        onMouseEvent(
            {.kind = MouseEvent::Kind::move, .point = word.point(), .injected = word.injected});
    } else if (word.name == "wheel") {
        onMouseEvent({.kind = MouseEvent::Kind::wheel,
                      .point = {},
                      .wheel = number(word.place),
                      .injected = word.injected});
    } else {
        return false;
    }
    return true;
}

// Whether the word is no input but something that happens; if so it is done.
bool happens(std::string_view text) {
    if (text == "leave") {
        onSessionLeft();
    } else if (text == "pass") {
        runCommandPass();
    } else if (text.find_first_not_of("0123456789") == std::string_view::npos) {
        desktop.advance(number(text) / 1000.0 - desktop.now());
    } else {
        return false;
    }
    return true;
}

}  // namespace

std::string feed(std::string_view script) {
    std::string answer;
    std::istringstream words{std::string(script)};
    for (std::string text; words >> text;) {
        if (happens(text)) continue;
        const Word word(text);
        if (feedMotion(word)) continue;
        if (!answer.empty()) answer.append(" ");
        answer.append(text).append(swallowed(word) ? "=hidden" : "=seen");
        if (!desktop.onCommand) answer += raisedRequests();
    }
    return answer;
}

std::uint32_t codeOf(std::string_view name) {
    static const std::map<std::string_view, std::uint32_t> names = {
        {"left", 1}, {"right", 2},  {"middle", 4}, {"side1", 5},   {"side2", 6},
        {"Esc", 27}, {"Space", 32}, {"Ctrl", 162}, {"RCtrl", 163},
    };
    if (const auto found = names.find(name); found != names.end()) return found->second;
    if (name.size() == 1 && name[0] >= 'A' && name[0] <= 'Z')
        return static_cast<std::uint32_t>(name[0]);
    if (name.size() == 2 && name[0] == 'D' && name[1] >= '0' && name[1] <= '9')
        return static_cast<std::uint32_t>(name[1]);
    if (name.size() >= 2 && name[0] == 'F')
        return 111 + static_cast<std::uint32_t>(number(name.substr(1)));
    throw std::invalid_argument("no key is called " + std::string(name));
}

}  // namespace ravelin::test
