// Sees every keyboard and mouse event of the desktop before all hooks installed earlier.
#pragma once

#include <windows.h>

#include <cstdint>

#include "tests/windows/harness/event_log.h"
#include "tests/windows/harness/message_thread.h"

namespace ravelin::test {

struct SeenKey {
    UINT message = 0;
    DWORD vk = 0;
    DWORD scan = 0;
    bool extended = false;
    bool up = false;
    bool injected = false;
    ULONG_PTR extra = 0;
};

struct SeenMouse {
    UINT message = 0;
    POINT point{};
    DWORD mouseData = 0;
    bool injected = false;
    ULONG_PTR extra = 0;
};

// One at a time.
class HookProbe {
  public:
    enum class Mode : std::uint8_t { passOn, swallowInjected };
    explicit HookProbe(Mode mode = Mode::passOn);
    HookProbe(const HookProbe&) = delete;
    HookProbe& operator=(const HookProbe&) = delete;
    ~HookProbe();

    EventLog<SeenKey> keys;
    EventLog<SeenMouse> mouse;

    bool awaitKey(UINT message, DWORD vk) {
        return keys.awaitOne(
            [=](const SeenKey& key) { return key.message == message && key.vk == vk; });
    }
    bool awaitMouse(UINT message) {
        return mouse.awaitOne([=](const SeenMouse& event) { return event.message == message; });
    }

    Mode mode() const { return mode_; }

  private:
    Mode mode_;
    HHOOK keyboardHook_ = nullptr;
    HHOOK mouseHook_ = nullptr;
    MessageThread thread_;
};

}  // namespace ravelin::test
