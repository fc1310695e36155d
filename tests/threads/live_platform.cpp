#include "tests/threads/live_platform.h"

#include <array>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "input/platform.h"

namespace ravelin::test {
namespace {

using Clock = std::chrono::steady_clock;

std::mutex mutex;
std::condition_variable changed;
std::array<bool, 5> signalled{};  // guarded by the mutex

bool& flagOf(platform::Event event) {
    return signalled[static_cast<std::size_t>(event)];
}

}  // namespace

void lowerAllEvents() {
    const std::lock_guard lock(mutex);
    signalled = {};
}

}  // namespace ravelin::test

namespace ravelin::platform {

bool send(const MouseInput& /*input*/) {
    test::sentCounts.mouse.fetch_add(1);
    return true;
}

bool send(const KeyInput& /*input*/) {
    test::sentCounts.keys.fetch_add(1);
    return true;
}

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
