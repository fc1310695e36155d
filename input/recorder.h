// The macro recorder: turns real mouse and keyboard input into events of the current profile.
//
// The input thread offers what it has not swallowed; the command thread starts, continues, stops
// and undoes, and records the switching of the tools. Every append takes profileMutex for the
// append alone; long work on a list is done on a copy beside the lock.
#pragma once

#include <cstdint>

#include "input/capture.h"

namespace ravelin {

// From the input thread. Nothing is recorded while recording is off, or while the tool settings say
// that this kind of input is not wanted.
void recordKey(const KeyboardEvent& event);
// A click on the program's own windows is not recorded, nor is the release of a side button.
void recordMouse(const MouseEvent& event);
void recordRawMotion(std::int32_t dx, std::int32_t dy);
// A move that is not to be recorded: the cursor has been seen there all the same.
void noteCursor(const MouseEvent& event);

// From the command thread: a tool (toolAutoClicker, toolKeySpammer) was switched.
void recordTool(std::uint32_t tool, bool on);

// Carries out, in this order: record toggle, start, continue, undo of a continuation, stop. The
// command thread alone.
void applyRecorderRequests();

// Whether the last continuation can be undone now: the same profile is current, nothing records or
// plays, and the macro is what it was when the continuation stopped. From any thread.
bool canUndoContinuation();

}  // namespace ravelin
