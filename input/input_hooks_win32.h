// The low-level hook procedures: they turn an event into plain values, ask the capture handlers and
// swallow what those claim.
#pragma once

#include <windows.h>

namespace ravelin {

LRESULT CALLBACK keyboardHookProc(int code, WPARAM message, LPARAM event) noexcept;
LRESULT CALLBACK mouseHookProc(int code, WPARAM message, LPARAM event) noexcept;

}  // namespace ravelin
