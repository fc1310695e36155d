// The engine's shared state: process-wide atomics, grouped by who writes them.
//
// Everything is a single value written by a sequentially consistent exchange and read without a
// lock. A reader that combines several of them may see slightly different moments.
#pragma once

#include <atomic>
#include <cstdint>

namespace ravelin {

// What the engine does at this moment. Only the command thread changes these in answer to requests;
// a worker clears its own flag at a count limit or at the end of a pass.
struct EngineState {
    std::atomic<bool> running{true};  // cleared once, when shut-down begins; ends every worker
    std::atomic<bool> recording{false};
    std::atomic<bool> playing{false};
    std::atomic<bool> autoClicking{false};
    std::atomic<bool> keySpamming{false};
    std::atomic<std::int32_t> clickCount{0};     // rounds since the clicker was last idle
    std::atomic<std::int32_t> pressCount{0};     // rounds since the key spammer was last idle
    std::atomic<bool> stopToolsWithMacro{true};  // application setting; written by the page thread
    std::atomic<bool> panelHover{false};         // written by the pipe thread
    std::atomic<std::int64_t> counterFrequency{1};  // performance counter, read once at start
};

inline EngineState engine;

// What went wrong without ending anything, counted from the start of the program for the page to
// tell. Any thread adds; nothing in the engine reads it.
struct Health {
    std::atomic<std::uint32_t> failures{0};      // rounds of a thread that an exception cut short
    std::atomic<std::uint32_t> refusedSends{0};  // synthetic input that the system did not take
    std::atomic<std::uint32_t> hooksPutBack{0};  // low-level hooks installed anew
    std::atomic<bool> hooksMissing{false};       // the system refuses a hook at this time
};

inline Health health;

// One flag a request: any requester sets it to 1 and signals the command event; the command thread
// consumes it by exchanging it to 0. The requests without a requester work like the others.
struct Requests {
    using Flag = std::atomic<std::uint8_t>;
    Flag recToggle{0};
    Flag startRecording{0};     // no requester
    Flag continueRecording{0};  // no requester
    Flag undoContinuation{0};   // no requester
    Flag stopRecording{0};      // no requester
    Flag playToggle{0};
    Flag startPlayback{0};  // no requester
    Flag stopPlayback{0};
    Flag clickerToggle{0};
    Flag clickerStart{0};
    Flag clickerStop{0};
    Flag keySpamToggle{0};
    Flag keySpamStart{0};
    Flag keySpamStop{0};
};

inline Requests requests;

// Virtual-key or mouse-button codes, and the hotkey lock. The codes are written by the command
// thread, the page thread and the session loader; `unlocked` by the input thread as well.
struct Hotkeys {
    std::atomic<std::uint32_t> rec{119};          // F8
    std::atomic<std::uint32_t> play{118};         // F7
    std::atomic<std::uint32_t> autoClicker{117};  // F6
    std::atomic<std::uint32_t> keySpam{120};      // F9
    std::atomic<std::uint32_t> unlock{121};       // F10
    std::atomic<bool> enabled{true};              // application setting
    std::atomic<bool> lockOn{true};               // application setting
    std::atomic<bool> unlocked{true};             // false: only the unlock hotkey is recognised
};

inline Hotkeys hotkeys;

// What `reassignKey` waits for. The numbers are part of the conversation with the page.
enum class CaptureSlot : std::int32_t {
    none = 0,
    rec = 1,
    play = 2,
    autoClicker = 3,
    keySpamHotkey = 4,
    keySpamTarget = 5,
    unlock = 6,
};

struct Capture {
    std::atomic<CaptureSlot> slot{CaptureSlot::none};
    std::atomic<std::uint32_t> code{0};        // captured, not yet taken over; 0 for none
    std::atomic<bool> pickingLocation{false};  // the next click chooses the fixed click position
};

inline Capture capture;

}  // namespace ravelin
