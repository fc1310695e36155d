// The record of what becomes of a process's windows: one line an event, with the time.
//
//   TIME WINDOW WHAT...    TIME in milliseconds of a clock that all processes share
//
// The environment variable RAVELIN_TEST_WINDOW_LOG names the folder (a Unix path) in which every
// process writes a file of its own, PROCESS.log. Without it nothing is recorded. Three modules
// write: the hook (window_hook.cpp) and the composition library (composition.cpp) what they say
// they do, the stand-in engine "frame" when a view shows its first picture after it was made
// visible, and "call METHOD" when its page calls a method of the program.
#pragma once

#include <windows.h>

#include <string>

namespace ravelin::recorder {

bool isRecording();

// Appends a line; the text is UTF-8. Safe from every thread.
void record(HWND window, const std::string& what);

}  // namespace ravelin::recorder
