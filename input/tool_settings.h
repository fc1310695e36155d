// The settings that steer the auto clicker, the key spammer, the recorder and the player.
//
// One process-wide record without a lock: every field is one atomic value, written whole by the
// page, the pipe and the session loader, and read by the workers and hooks whenever they need it.
// An update made while a tool runs takes effect field by field, and does not wake a sleeping
// worker.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

namespace ravelin {

struct ToolSettings {
    // Auto clicker.
    std::atomic<std::int32_t> sh{0};       // interval, hours
    std::atomic<std::int32_t> sm{0};       // interval, minutes
    std::atomic<std::int32_t> ss{0};       // interval, seconds
    std::atomic<std::int32_t> sms{5};      // interval, milliseconds
    std::atomic<std::int32_t> sbtn{0};     // 0 left, 1 right, 2 middle, other: no button
    std::atomic<std::int32_t> stype{0};    // 1 double click, other: single
    std::atomic<std::int32_t> rptMode{1};  // 0 stops after rptTimes, other: until stopped
    std::atomic<std::int32_t> rptTimes{10};
    std::atomic<std::int32_t> locMode{0};  // 1 clicks at the fixed point, other: at the cursor
    std::atomic<std::int32_t> fixedX{0};   // screen pixels
    std::atomic<std::int32_t> fixedY{0};

    // Recorder.
    std::atomic<bool> tmv{true};    // moves
    std::atomic<bool> tclk{true};   // clicks
    std::atomic<bool> tscr{true};   // wheel
    std::atomic<bool> tkey{true};   // keys
    std::atomic<bool> trel{false};  // moves as relative motion from raw input

    // Player.
    std::atomic<float> tspd{1.0F};  // event times are divided by it
    std::atomic<bool> tloop{false};
    std::atomic<std::int32_t> tloopMs{500};  // pause between loops

    // Key spammer.
    std::atomic<std::int32_t> ksh{0};
    std::atomic<std::int32_t> ksm{0};
    std::atomic<std::int32_t> kss{0};
    std::atomic<std::int32_t> ksms{5};
    std::atomic<std::int32_t> ksRptMode{1};
    std::atomic<std::int32_t> ksRptTimes{10};

    // Stored and reported only: no part of the engine reads them.
    std::atomic<bool> holdAuto{false};
    std::atomic<bool> holdKeySpam{false};
};

inline ToolSettings toolSettings;

// What the key spammer presses. Edited by the command thread (adding), the page or pipe thread
// (removing) and the session loader; read by the worker on each round without a lock.
struct KeySpamTargets {
    static constexpr std::int32_t cap = 3;

    std::array<std::atomic<std::uint32_t>, 256> keys{32};
    std::atomic<std::int32_t> count{1};
    std::atomic<std::uint32_t> first{32};  // copy of the first target for the settings line
    std::atomic<bool> chord{false};        // all targets pressed together each round
};

inline KeySpamTargets keySpamTargets;

// One wait in milliseconds made of four parts: ceil(max(1, sum)). The parts are not range-checked.
double intervalMs(std::int32_t hours, std::int32_t minutes, std::int32_t seconds,
                  std::int32_t milliseconds);
// The interval as the 32-bit count that the platform's wait takes. A sum above the largest finite
// wait (about 49 days) is held there, so that it never turns into a wait without end or a short
// one.
std::uint32_t waitMs(double interval);

// Nine values separated by commas: sh, sm, ss, sms, sbtn, stype, rptMode, rptTimes, locMode. With
// fewer nothing happens; more are ignored. A value that is no number throws as toIntOrThrow does,
// and the fields stored before it keep their new values. Then the current profile is synchronised.
void updateSpammer(std::string_view text);
// The same with six values: ksh, ksm, kss, ksms, ksRptMode, ksRptTimes.
void updateKeySpam(std::string_view text);

// The record as one JSON object for the page.
std::string getSettings();

}  // namespace ravelin
