// Which request a key or button that has just gone down stands for.
#pragma once

#include <cstdint>

namespace ravelin {

// Whether the code is a hotkey at this moment. If so its request is raised (the unlock hotkey flips
// the lock instead) and the command event signalled. Two hotkeys with the same code act as the
// first of: unlock, record, play, auto clicker, key spammer. While the lock is on and engaged, only
// the unlock hotkey counts; while it is off, the unlock hotkey means nothing. The input thread
// alone.
bool acceptHotkey(std::uint32_t code);

}  // namespace ravelin
