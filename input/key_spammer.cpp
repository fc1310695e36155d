#include "input/key_spammer.h"

#include <algorithm>
#include <array>
#include <span>

#include "input/engine_state.h"
#include "input/fence.h"
#include "input/requests.h"
#include "input/synthetic_input.h"
#include "input/tool_settings.h"
#include "persistence/profiles.h"
#include "support/number_text.h"

namespace ravelin {
namespace {

using platform::Event;

constexpr std::size_t slotCount = std::tuple_size_v<decltype(KeySpamTargets::keys)>;

std::size_t targetCount() {
    return static_cast<std::size_t>(
        std::clamp(keySpamTargets.count.load(), 0, static_cast<std::int32_t>(slotCount)));
}

// What the worker keeps between rounds.
class Presser {
  public:
    // Presses and releases the keys of one round. They are read once, before the first press: the
    // page may change the list at any moment, and a key that left it would never be released.
    void playRound(std::size_t count, bool chord) {
        for (std::size_t i = 0; i < count; ++i)
            refresh(i);
        if (turn_ >= count) turn_ = 0;
        if (chord) {
            pressThenRelease(std::span(slots_).first(count));
        } else {
            pressThenRelease(std::span(slots_).subspan(turn_, 1));
            turn_ = (turn_ + 1) % count;
        }
    }

  private:
    struct Slot {
        std::uint32_t vk = 0xFFFFFFFF;  // no key: the first use looks the scan code up
        std::uint32_t scan = 0;
        bool extended = false;
    };

    void refresh(std::size_t index) {
        Slot& slot = slots_[index];
        const auto vk = keySpamTargets.keys[index].load();
        if (slot.vk == vk) return;
        platform::adoptForegroundLayout();
        slot = {vk, platform::scanCode(vk), isExtendedKey(vk)};
    }

    static void pressThenRelease(std::span<const Slot> keys) {
        for (const bool down : {true, false})
            for (const Slot& key : keys)
                sendKeyRecord(keyRecord(key.scan, key.extended, down));
    }

    std::array<Slot, slotCount> slots_;
    std::size_t turn_ = 0;
};

// One step of the worker; returns how long to wait before the next one.
std::uint32_t spamRound(Presser& presser) {
    const ToolSettings& s = toolSettings;
    if (!engine.keySpamming.load()) {
        engine.pressCount.exchange(0);
        return platform::forever;
    }
    if (s.ksRptMode.load() == 0 && engine.pressCount.load() >= s.ksRptTimes.load()) {
        engine.keySpamming.exchange(false);
        releaseKeySpamTargets();
        return 0;
    }
    const auto count = targetCount();
    if (count < 1) {
        engine.keySpamming.exchange(false);
        return 0;
    }
    presser.playRound(count, keySpamTargets.chord.load());
    engine.pressCount.fetch_add(1);
    return waitMs(intervalMs(s.ksh.load(), s.ksm.load(), s.kss.load(), s.ksms.load()));
}

void refreshFirstTarget() {
    if (keySpamTargets.count.load() > 0)
        keySpamTargets.first.exchange(keySpamTargets.keys[0].load());
}

}  // namespace

void runKeySpammer() {
    platform::enterWorkerThread();
    Presser presser;
    while (engine.running.load()) {
        std::uint32_t wait = pauseAfterFailureMs;
        runFenced([&] { wait = spamRound(presser); });
        if (wait > 0) platform::waitForEventOrQuit(Event::keySpamWake, wait);
    }
}

void applyKeySpamRequests() {
    if (takeRequest(requests.keySpamToggle)) {
        if (engine.keySpamming.exchange(false))
            releaseKeySpamTargets();
        else if (keySpamTargets.count.load() > 0)
            engine.keySpamming.exchange(true);
        platform::signal(Event::keySpamWake);
    }
    if (takeRequest(requests.keySpamStart) && keySpamTargets.count.load() > 0 &&
        !engine.keySpamming.exchange(true))
        platform::signal(Event::keySpamWake);
    if (takeRequest(requests.keySpamStop) && engine.keySpamming.exchange(false)) {
        releaseKeySpamTargets();
        platform::signal(Event::keySpamWake);
    }
}

void appendKeySpamTarget(std::uint32_t vk) {
    const auto count = keySpamTargets.count.load();
    if (count < 0 || count >= KeySpamTargets::cap) return;
    // The key before the count: a round that sees the new count finds its key.
    keySpamTargets.keys[static_cast<std::size_t>(count)].exchange(vk);
    keySpamTargets.count.exchange(count + 1);
    refreshFirstTarget();
    syncCurrentProfile();
}

void removeKeySpamTarget(std::string_view index) {
    const auto converted = toInt(index);
    if (!converted) return;
    const auto count = keySpamTargets.count.load();
    if (converted.value < 0 || converted.value >= count) return;
    auto& keys = keySpamTargets.keys;
    const auto removed = keys[static_cast<std::size_t>(converted.value)].load();
    for (auto i = static_cast<std::size_t>(converted.value); i + 1 < targetCount(); ++i)
        keys[i].exchange(keys[i + 1].load());
    keySpamTargets.count.exchange(count - 1);
    refreshFirstTarget();
    syncCurrentProfile();
    if (count == 1 && engine.keySpamming.load()) {
        // The stop finds an empty list, so the last key is released here.
        sendKey(removed, false);
        postRequest(requests.keySpamStop);
    }
}

void setKeySpamChordMode(std::string_view text) {
    keySpamTargets.chord.exchange(text == "1");
    syncCurrentProfile();
}

void releaseKeySpamTargets() {
    const auto count = targetCount();
    platform::adoptForegroundLayout();
    for (std::size_t i = 0; i < count; ++i)
        sendKey(keySpamTargets.keys[i].load(), false);
}

}  // namespace ravelin
