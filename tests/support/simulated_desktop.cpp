#include "tests/support/simulated_desktop.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "input/engine_state.h"
#include "input/synthetic_input.h"

namespace ravelin::test {
namespace {

constexpr std::uint32_t highestCode = 255;

// The pixel that moveMouseAbsolute was called with.
std::int64_t pixelOf(std::int32_t normalised, std::int32_t screenSize) {
    const double pixel = static_cast<double>(normalised) * screenSize / 65536;
    return static_cast<std::int64_t>(normalised >= 0 ? std::ceil(pixel) : std::floor(pixel));
}

std::string pointText(std::int64_t x, std::int64_t y) {
    return std::to_string(x) + ',' + std::to_string(y);
}

std::int64_t ticks(double seconds) {
    return std::llround(seconds * static_cast<double>(SimulatedDesktop::ticksPerSecond));
}

}  // namespace

std::uint32_t simulatedScanCode(std::uint32_t vk) {
    if (vk == 7 || vk > highestCode) return 0;
    return highestCode - (vk == 163 || vk == 165 ? vk - 1 : vk);
}

std::string describe(const platform::MouseInput& input) {
    static const std::map<std::uint32_t, std::string> buttons = {
        {0, "no button"},
        {mouse_flag::leftDown, "left down"},
        {mouse_flag::leftUp, "left up"},
        {mouse_flag::rightDown, "right down"},
        {mouse_flag::rightUp, "right up"},
        {mouse_flag::middleDown, "middle down"},
        {mouse_flag::middleUp, "middle up"},
        {mouse_flag::sideDown, "side down"},
    };
    if (input.flags == (mouse_flag::move | mouse_flag::absolute))
        return "move " + pointText(pixelOf(input.dx, desktop.screen.cx),
                                   pixelOf(input.dy, desktop.screen.cy));
    if (input.flags == mouse_flag::move) return "move by " + pointText(input.dx, input.dy);
    if (input.flags == mouse_flag::wheel)
        return "wheel " + std::to_string(static_cast<std::int32_t>(input.mouseData));
    const auto button = buttons.find(input.flags);
    return button != buttons.end() ? button->second : "flags " + std::to_string(input.flags);
}

std::string describe(const platform::KeyInput& input) {
    std::string text =
        input.scan == 0 ? "scan 0" : "key " + std::to_string(highestCode - input.scan);
    if ((input.flags & key_flag::extended) != 0) text += " ext";
    return text + ((input.flags & key_flag::up) != 0 ? " up" : " down");
}

void SimulatedDesktop::at(double seconds, std::function<void()> action) {
    actions_.emplace(ticks(seconds), std::move(action));
}

void SimulatedDesktop::advance(double seconds) {
    moveTo(clock_ + ticks(seconds), nullptr);
}

bool SimulatedDesktop::isSignalled(platform::Event event) const {
    return signalled_[static_cast<std::size_t>(event)];
}

void SimulatedDesktop::clearQuit() {
    signalled_[static_cast<std::size_t>(platform::Event::quit)] = false;
}

std::vector<std::string> SimulatedDesktop::texts() const {
    std::vector<std::string> texts;
    for (const Sent& sent : log)
        texts.push_back(sent.text);
    return texts;
}

std::vector<double> SimulatedDesktop::times() const {
    std::vector<double> times;
    for (const Sent& sent : log)
        times.push_back(sent.at);
    return times;
}

bool SimulatedDesktop::send(const std::variant<platform::MouseInput, platform::KeyInput>& input) {
    if (!takesInput) return false;
    log.push_back({now(), input, std::visit([](const auto& i) { return describe(i); }, input)});
    if (const auto* mouse = std::get_if<platform::MouseInput>(&input);
        mouse != nullptr && (mouse->flags & mouse_flag::absolute) != 0)
        cursor = {static_cast<std::int32_t>(pixelOf(mouse->dx, screen.cx)),
                  static_cast<std::int32_t>(pixelOf(mouse->dy, screen.cy))};
    if (log.size() >= logLimit) endRun();
    if (onSend) onSend(Sent(log.back()));
    return true;
}

void SimulatedDesktop::signal(platform::Event event) {
    signalled_[static_cast<std::size_t>(event)] = true;
    if (event == platform::Event::command) runPendingCommand();
}

// A pass that signals again is followed by another one, not nested in it.
void SimulatedDesktop::runPendingCommand() {
    if (!onCommand || inCommand_) return;
    inCommand_ = true;
    while (std::exchange(signalled_[static_cast<std::size_t>(platform::Event::command)], false))
        onCommand();
    inCommand_ = false;
}

bool SimulatedDesktop::wakes(platform::Event event) const {
    return isSignalled(event) || isSignalled(platform::Event::quit);
}

void SimulatedDesktop::wait(platform::Event event, std::uint32_t milliseconds) {
    if (!wakes(event)) {
        if (milliseconds == platform::forever) {
            while (!wakes(event) && !actions_.empty() && !inAction_)
                moveTo(std::max(clock_, actions_.begin()->first), &event);
            if (!wakes(event)) endRun();
        } else {
            moveTo(clock_ + milliseconds * (ticksPerSecond / 1000), &event);
        }
    }
    if (event != platform::Event::quit) signalled_[static_cast<std::size_t>(event)] = false;
}

void SimulatedDesktop::sleep(std::uint32_t milliseconds) {
    moveTo(clock_ + milliseconds * (ticksPerSecond / 1000), nullptr);
}

// Reading the clock takes a microsecond, so that a busy wait ends.
std::int64_t SimulatedDesktop::readCounter() {
    ++counterReads;
    const auto read = clock_;
    moveTo(clock_ + ticksPerSecond / 1'000'000, nullptr);
    return read;
}

void SimulatedDesktop::moveTo(std::int64_t tick, const platform::Event* awaited) {
    // Time that an action itself takes up passes without further actions.
    while (!inAction_ && !actions_.empty() && actions_.begin()->first <= tick) {
        auto due = actions_.extract(actions_.begin());
        clock_ = std::max(clock_, due.key());
        inAction_ = true;
        due.mapped()();
        inAction_ = false;
        if (awaited != nullptr && wakes(*awaited)) return;
    }
    clock_ = std::max(clock_, tick);
    if (now() >= endOfTime) endRun();
}

void SimulatedDesktop::endRun() {
    engine.running.exchange(false);
    signal(platform::Event::quit);
}

}  // namespace ravelin::test

namespace ravelin::platform {

using test::desktop;

bool send(const MouseInput& input) {
    return desktop.send(input);
}

bool send(const KeyInput& input) {
    return desktop.send(input);
}

void enterWorkerThread() {
    desktop.physicalPixels = true;
}

void adoptForegroundLayout() {
    desktop.layout = desktop.foregroundLayout;
}

std::uint32_t scanCode(std::uint32_t vk) {
    ++desktop.scanLookups;
    return test::simulatedScanCode(vk + desktop.layout);
}

std::string systemKeyName(std::int32_t lParam) {
    for (const auto& [vk, name] : desktop.keyNames) {
        const std::uint32_t extendedBit = isExtendedKey(vk) ? 0x01000000 : 0;
        if (lParam == static_cast<std::int32_t>(test::simulatedScanCode(vk) << 16 | extendedBit))
            return name;
    }
    return {};
}

namespace {

std::int32_t times(std::int32_t pixels, double factor) {
    return static_cast<std::int32_t>(std::lround(pixels * factor));
}

// What one pixel of the screen is for the thread.
double seenScale() {
    return desktop.physicalPixels ? 1.0 : desktop.scale;
}

}  // namespace

std::optional<Point> cursorPosition() {
    if (!desktop.cursorKnown) return std::nullopt;
    return Point{times(desktop.cursor.x, 1 / seenScale()),
                 times(desktop.cursor.y, 1 / seenScale())};
}

Size primaryScreen() {
    return {times(desktop.screen.cx, 1 / seenScale()), times(desktop.screen.cy, 1 / seenScale())};
}

std::uint32_t doubleClickMs() {
    return desktop.doubleClickMs;
}

std::uint32_t filterKeysPauseMs() {
    return desktop.filterKeysPauseMs;
}

bool isOwnWindowAt(Point point) {
    return desktop.isOwnWindow({times(point.x, seenScale()), times(point.y, seenScale())});
}

std::int64_t counter() {
    return desktop.readCounter();
}

std::int64_t counterFrequency() {
    return test::SimulatedDesktop::ticksPerSecond;
}

void sleepMs(std::uint32_t milliseconds) {
    desktop.sleep(milliseconds);
}

bool createEvents() {
    return true;
}

void closeEvents() {}

void signal(Event event) {
    desktop.signal(event);
}

void waitForEventOrQuit(Event event, std::uint32_t milliseconds) {
    desktop.wait(event, milliseconds);
}

}  // namespace ravelin::platform
