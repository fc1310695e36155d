// The few things that the engine asks of the machine.
//
// The one seam of the engine: platform_win32.cpp answers for real, and the unit tests link a
// simulated desktop with a virtual clock in its place. Every function may be called from any
// thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ravelin::platform {

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    std::int32_t cx = 0;
    std::int32_t cy = 0;
};

struct MouseInput {
    std::int32_t dx = 0;
    std::int32_t dy = 0;
    std::uint32_t mouseData = 0;
    std::uint32_t flags = 0;  // MOUSEEVENTF_...
    bool operator==(const MouseInput&) const = default;
};

// Always by scan code, never by virtual key.
struct KeyInput {
    std::uint16_t scan = 0;
    std::uint32_t flags = 0;  // KEYEVENTF_...
    bool operator==(const KeyInput&) const = default;
};

// Put one record, alone, into the system's input stream, without time stamp or extra information.
// Return whether the system took it: it refuses while a program with higher rights, or one that
// blocks all input, is in front.
bool send(const MouseInput& input);
bool send(const KeyInput& input);

// Prepares the calling thread for the engine's work, at its beginning: it sees the pixels of every
// monitor as they are, whatever the process's awareness, since the hooks do; and it asks not to be
// slowed down while the program is in the background. Systems that know neither ignore it.
void enterWorkerThread();

// Makes the keyboard layout of the program in front that of the calling thread. A key's scan code
// depends on the layout of the thread that asks, and the program in front will read the scan code
// by its own.
void adoptForegroundLayout();

// The scan code of a virtual key in the calling thread's layout; 0 when it has none.
std::uint32_t scanCode(std::uint32_t vk);
// The system's display name for a key in the lParam form of a key message, as UTF-8; empty when
// the system has none.
std::string systemKeyName(std::int32_t lParam);

std::optional<Point> cursorPosition();
Size primaryScreen();
std::uint32_t doubleClickMs();
// Returns the longest pause between two repeats of a held key that the user has asked for by Filter
// Keys; 0 where that is off.
std::uint32_t filterKeysPauseMs();
// Whether the top-level window under the point belongs to this process or to another process of
// the same executable. False when that cannot be told.
bool isOwnWindowAt(Point point);

// The performance counter, in ticks, and its ticks per second.
std::int64_t counter();
std::int64_t counterFrequency();
void sleepMs(std::uint32_t milliseconds);

// The events of the process. `quit` is set once and stays set; the others wake one wait each.
enum class Event : std::uint8_t { quit, command, clickerWake, keySpamWake, playerWake };
inline constexpr std::uint32_t forever = 0xFFFFFFFF;

bool createEvents();
void closeEvents();
void signal(Event event);
// Waits for the event or for quit, at most `milliseconds`; returns on whichever comes first.
void waitForEventOrQuit(Event event, std::uint32_t milliseconds);

}  // namespace ravelin::platform
