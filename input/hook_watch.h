// Tells when Windows has removed a low-level hook.
#pragma once

#include <cstdint>
#include <optional>

namespace ravelin {

// Windows removes a hook whose procedure was slow a few times, and says nothing: hotkeys are simply
// dead from then on. What shows it is input that must have passed the hook and did not.
//
// - Mouse: raw motion goes on without a call of the mouse hook.
// - Keyboard: the session's time of last input moves on, and neither raw input nor a call of one of
//   the hooks explains it.
//
// Belongs to the input thread, which gets the calls, the raw input and the timer. Times are in
// milliseconds of the system's tick count, which wraps around.
class HookWatch {
  public:
    // The machine at the moment of a judgement.
    struct Moment {
        std::uint32_t now = 0;
        std::uint32_t lastInput = 0;  // when the session last got input
        // The program in front runs with our rights. When it does not, or when there is none, as on
        // the secure desktop, hooks get nothing and nothing is judged.
        bool inFrontReachable = true;
        bool mouseMissing = false;  // the system refused the hook before
        bool keyboardMissing = false;
    };
    // The hooks to install anew.
    struct Verdict {
        bool mouse = false;
        bool keyboard = false;
        bool operator==(const Verdict&) const = default;
    };

    void onMouseCall();
    void onKeyboardCall() { explained_ = true; }
    // Whether the next raw report is worth reading: a few a second tell enough, and there may be
    // thousands.
    bool wantsRawMouse(std::uint32_t now) const;
    // A report of raw mouse input; `moved` when it was read and tells of motion.
    void onRawMouse(std::uint32_t now, bool moved);

    // Judges both hooks; to be called once or twice a second, after all input that was waiting.
    // Each hook is put back at most every five seconds.
    Verdict judge(const Moment& moment);

  private:
    bool mouseIsSilent() const;
    bool keyboardIsSilent(std::uint32_t lastInput);

    struct Motion {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
    };
    std::optional<Motion> motion_;  // since the last call of the mouse hook
    std::optional<std::uint32_t> lastRead_;
    bool explained_ = true;  // raw input or a call came since the last judgement
    std::optional<std::uint32_t> lastInput_;
    bool unexplained_ =
        false;  // input came before the last judgement, and nothing has explained it
    std::optional<std::uint32_t> mousePutBack_;
    std::optional<std::uint32_t> keyboardPutBack_;
};

}  // namespace ravelin
