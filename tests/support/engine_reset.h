// The whole engine as a new process finds it, for one test after another in the same process.
#pragma once

namespace ravelin::test {

// Requests, hotkeys, capture, settings, targets, recorder and what is held down, all back at their
// defaults; one empty profile with the default name, which is current. The clock starts at 0.
void resetEngine();

}  // namespace ravelin::test
