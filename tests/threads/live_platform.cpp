#include "tests/threads/live_platform.h"

#include <array>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <random>
#include <thread>

#include "input/platform.h"
#include "input/synthetic_input.h"

namespace ravelin::test {
namespace {

using Clock = std::chrono::steady_clock;

std::mutex mutex;
std::condition_variable changed;
std::array<bool, 5> signalled{};  // guarded by the mutex

// The system takes input when it gets to it: sometimes tens of microseconds later, in which other
// threads go on.
void letTheSystemTakeItsTime() {
    thread_local std::minstd_rand dice(std::random_device{}());
    const auto end = Clock::now() + std::chrono::microseconds(dice() % 4 == 0 ? dice() % 60 : 0);
    while (Clock::now() < end)
        std::this_thread::yield();
}

bool& flagOf(platform::Event event) {
    return signalled[static_cast<std::size_t>(event)];
}

}  // namespace

void HeldInput::mouse(std::uint32_t flags) {
    constexpr std::array downs{mouse_flag::leftDown, mouse_flag::rightDown, mouse_flag::middleDown};
    const std::lock_guard lock(mutex_);
    for (std::size_t i = 0; i < downs.size(); ++i) {
        // The release flag of a button is the next bit.
        if (flags == downs[i]) buttons_[i] = true;
        if (flags == downs[i] << 1) buttons_[i] = false;
    }
}

void HeldInput::key(std::uint16_t scan, bool down) {
    const std::lock_guard lock(mutex_);
    keys_[scan & 0xFF] = down;
}

void HeldInput::releaseAll() {
    const std::lock_guard lock(mutex_);
    buttons_ = {};
    keys_ = {};
}

std::string HeldInput::names() const {
    constexpr std::array buttonNames{"left ", "right ", "middle "};
    const std::lock_guard lock(mutex_);
    std::string text;
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        if (buttons_[i]) text += buttonNames[i];
    for (std::size_t i = 0; i < keys_.size(); ++i)
        if (keys_[i]) text += "key " + std::to_string(i) + ' ';
    return text;
}

void lowerAllEvents() {
    const std::lock_guard lock(mutex);
    signalled = {};
}

}  // namespace ravelin::test

namespace ravelin::platform {

bool send(const MouseInput& input) {
    test::letTheSystemTakeItsTime();
    test::heldInput.mouse(input.flags);
    if (input.flags == mouse_flag::leftUp) test::sentCounts.leftUps.fetch_add(1);
    if (input.flags == mouse_flag::rightUp) test::sentCounts.rightUps.fetch_add(1);
    test::sentCounts.mouse.fetch_add(1);
    return true;
}

bool send(const KeyInput& input) {
    test::letTheSystemTakeItsTime();
    test::heldInput.key(input.scan, (input.flags & key_flag::up) == 0);
    test::sentCounts.keys.fetch_add(1);
    return true;
}

void enterWorkerThread() {}

void adoptForegroundLayout() {}

std::uint32_t scanCode(std::uint32_t vk) {
    return vk & 0xFF;
}

std::string systemKeyName(std::int32_t lParam) {
    return "Key " + std::to_string(lParam);
}

std::optional<Point> cursorPosition() {
    return Point{};
}

Size primaryScreen() {
    return {1920, 1080};
}

std::uint32_t doubleClickMs() {
    return 500;
}

std::uint32_t filterKeysPauseMs() {
    return 0;
}

bool isOwnWindowAt(Point /*point*/) {
    return false;
}

std::int64_t counter() {
    return test::Clock::now().time_since_epoch().count();
}

std::int64_t counterFrequency() {
    return test::Clock::period::den / test::Clock::period::num;
}

void sleepMs(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

bool createEvents() {
    return true;
}

void closeEvents() {}

void signal(Event event) {
    {
        const std::lock_guard lock(test::mutex);
        test::flagOf(event) = true;
    }
    test::changed.notify_all();
}

void waitForEventOrQuit(Event event, std::uint32_t milliseconds) {
    std::unique_lock lock(test::mutex);
    const auto woken = [&] { return test::flagOf(event) || test::flagOf(Event::quit); };
    if (milliseconds == forever)
        test::changed.wait(lock, woken);
    else
        test::changed.wait_for(lock, std::chrono::milliseconds(milliseconds), woken);
    if (event != Event::quit) test::flagOf(event) = false;
}

}  // namespace ravelin::platform
