#include "tests/windows/harness/engine_fixture.h"

#include "input/engine_state.h"
#include "input/input_thread.h"
#include "input/platform.h"
#include "input/raw_input_window_win32.h"
#include "persistence/profiles.h"
#include "tests/support/engine_defaults.h"
#include "tests/windows/harness/eventually.h"

namespace ravelin::test {

InputThreadRun::InputThreadRun() : thread_(runInputThread) {
    eventually([] { return hiddenWindow() != nullptr; });
    // Answered by the message loop, which the thread enters once its hooks are in place.
    SendMessageW(hiddenWindow(), WM_NULL, 0, 0);
}

InputThreadRun::~InputThreadRun() {
    postQuitToInputThread();
    thread_.join();
}

HWND InputThreadRun::hiddenWindow() {
    return FindWindowExW(HWND_MESSAGE, nullptr, rawInputWindowClass, nullptr);
}

void EngineTest::SetUp() {
    ASSERT_TRUE(platform::createEvents());
    restoreEngineDefaults();
}

void EngineTest::TearDown() {
    engine.recording = false;
    profiles.clear();
    currentProfile = -1;
    platform::closeEvents();
}

}  // namespace ravelin::test
