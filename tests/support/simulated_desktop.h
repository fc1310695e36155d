// A desktop without a machine: answers the engine's platform calls with a clock that only moves
// when the engine waits, sleeps or reads it, and keeps a log of everything sent.
//
// One thread, no randomness: hours of clicking pass in milliseconds and every run is the same. A
// worker can be called straight from a test. Actions scheduled with `at` run while a wait or a
// sleep passes their moment; a wait without end and without anything scheduled ends the run by
// clearing engine.running.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "input/platform.h"

namespace ravelin::test {

struct Sent {
    double at = 0.0;  // seconds
    std::variant<platform::MouseInput, platform::KeyInput> input;
    std::string text;  // as describe() tells it
};

class SimulatedDesktop {
  public:
    static constexpr std::int64_t ticksPerSecond = 10'000'000;

    double now() const { return static_cast<double>(clock_) / ticksPerSecond; }
    // Runs the action when the clock reaches this moment. Actions of one moment run in the order
    // of the calls; an action may schedule others.
    void at(double seconds, std::function<void()> action);
    // Lets time pass outside any worker.
    void advance(double seconds);
    bool isSignalled(platform::Event event) const;
    // Lets another worker run after one that was ended.
    void clearQuit();

    // Runs whenever the command event is signalled, in place of a command thread.
    std::function<void()> onCommand;
    // Runs after every record sent.
    std::function<void(const Sent&)> onSend;
    std::vector<Sent> log;
    platform::Size screen{1920, 1080};
    // Threads that have not asked for physical pixels see a screen that is this much smaller, and
    // every point on it likewise. Hooks and the log count physical ones.
    double scale = 1.0;
    bool physicalPixels = false;  // of the thread, which is the only one
    std::uint32_t layout = 0;     // of the thread; it shifts the scan codes
    std::uint32_t foregroundLayout = 0;
    bool cursorKnown = true;
    platform::Point cursor;
    std::uint32_t doubleClickMs = 500;
    std::uint32_t filterKeysPauseMs = 0;
    bool takesInput = true;  // false: every record is refused, and is not in the log
    std::function<bool(platform::Point)> isOwnWindow = [](platform::Point) { return false; };
    std::map<std::uint32_t, std::string> keyNames;  // by virtual-key code
    std::uint32_t scanLookups = 0;
    std::int64_t counterReads = 0;
    // A worker that has nothing to stop it is stopped here.
    double endOfTime = 4 * 3600.0;
    std::size_t logLimit = 1'000'000;

    // The texts of the log, and its moments.
    std::vector<std::string> texts() const;
    std::vector<double> times() const;

    // The platform's half.
    bool send(const std::variant<platform::MouseInput, platform::KeyInput>& input);
    void signal(platform::Event event);
    void wait(platform::Event event, std::uint32_t milliseconds);
    void sleep(std::uint32_t milliseconds);
    std::int64_t readCounter();

  private:
    bool wakes(platform::Event event) const;
    // Moves the clock to the tick and runs what is due, until `awaited` (if any) is signalled.
    void moveTo(std::int64_t tick, const platform::Event* awaited);
    void runPendingCommand();
    void endRun();

    std::int64_t clock_ = 0;
    std::multimap<std::int64_t, std::function<void()>> actions_;
    std::array<bool, 5> signalled_{};
    bool inAction_ = false;
    bool inCommand_ = false;
};

inline SimulatedDesktop desktop;

// The simulated layout: every code up to 254 has a scan code of its own, unlike it in value; but
// right Ctrl and right Alt share that of their left-hand twins, and 7 has none.
std::uint32_t simulatedScanCode(std::uint32_t vk);

// "move 10,20" (a pixel), "move by 3,-4", "left down", "wheel -120", "no button", "key 65 down",
// "scan 0 down"; extended keys as "key 37 ext down".
std::string describe(const platform::MouseInput& input);
std::string describe(const platform::KeyInput& input);

}  // namespace ravelin::test
