#include "input/hook_watch.h"

#include <utility>

namespace ravelin {
namespace {

// A raw report may come after the call for the same motion, so a single one proves nothing. Motion
// over this time without a call does.
constexpr std::uint32_t silentMotionMs = 200;
constexpr std::uint32_t readEveryMs = 50;
constexpr std::uint32_t putBackEveryMs = 5000;

bool mayPutBack(std::optional<std::uint32_t>& last, std::uint32_t now) {
    if (last && now - *last < putBackEveryMs) return false;
    last = now;
    return true;
}

}  // namespace

void HookWatch::onMouseCall() {
    explained_ = true;
    motion_.reset();
}

bool HookWatch::wantsRawMouse(std::uint32_t now) const {
    return !lastRead_ || now - *lastRead_ >= readEveryMs;
}

void HookWatch::onRawMouse(std::uint32_t now, bool moved) {
    explained_ = true;
    if (!moved) return;
    lastRead_ = now;
    if (!motion_) motion_ = Motion{now, now};
    motion_->last = now;
}

HookWatch::Verdict HookWatch::judge(const Moment& moment) {
    const bool keyboardSilent = keyboardIsSilent(moment.lastInput);
    if (!moment.inFrontReachable) {
        motion_.reset();
        unexplained_ = false;
        return {};
    }
    Verdict verdict;
    if ((moment.mouseMissing || mouseIsSilent()) && mayPutBack(mousePutBack_, moment.now)) {
        verdict.mouse = true;
        motion_.reset();
    }
    if ((moment.keyboardMissing || keyboardSilent) && mayPutBack(keyboardPutBack_, moment.now)) {
        verdict.keyboard = true;
        unexplained_ = false;
    }
    return verdict;
}

bool HookWatch::mouseIsSilent() const {
    return motion_ && motion_->last - motion_->first >= silentMotionMs;
}

// The system may note the input a moment before it calls the hook, so the call gets until the next
// judgement.
bool HookWatch::keyboardIsSilent(std::uint32_t lastInput) {
    const bool explained = std::exchange(explained_, false);
    const bool waited = !explained && unexplained_;
    const bool moved = lastInput_ && *lastInput_ != lastInput;
    unexplained_ = !explained && (unexplained_ || moved);
    lastInput_ = lastInput;
    return waited;
}

}  // namespace ravelin
