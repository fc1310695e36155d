// Real input as a line of text, for tests of what the input thread makes of it.
//
// A script is words separated by blanks, in order of time:
//   250            the clock moves on to 250 ms
//   F6↓ A↑ Esc↓    a key goes down, repeats (a press while it is down) or goes up
//   left↓@10,20    a button at a point (left, right, middle, side1, side2); the point may be absent
//   move@10,20     the cursor moves
//   wheel@-120     the wheel turns
//   raw@3,-4       raw motion
//   ~F6↓           any of these, flagged by the system as injected
//   leave          the session is locked or disconnected
//   pass           the command thread carries out what was requested
#pragma once

#include <string>
#include <string_view>

namespace ravelin::test {

// Feeds a script to the input thread's handlers. The answer repeats every key and button word with
// what became of it: "=hidden" when it was swallowed, "=seen" when other programs get it, then the
// requests that it raised, as in "F6↓=hidden:clickerToggle". Requests are consumed when they are
// told; with desktop.onCommand set they are carried out instead.
std::string feed(std::string_view script);

// The code of a key or button as scripts name it: F1 to F24, A to Z, 0 to 9 as D0 to D9, Esc, Ctrl,
// RCtrl, Space, left, right, middle, side1, side2.
std::uint32_t codeOf(std::string_view name);

}  // namespace ravelin::test
