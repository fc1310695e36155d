// The engine as a new process finds it, on whatever platform the tests run.
#pragma once

namespace ravelin::test {

// Requests, hotkeys, capture, settings, targets, recorder and what is held down, all back at their
// defaults; one empty profile with the default name, which is current. Only while nothing of the
// engine runs.
void restoreEngineDefaults();

}  // namespace ravelin::test
