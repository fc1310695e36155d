// The key spammer: presses one to three keys again and again, one after another or together as a
// chord, until it is stopped or has done its rounds.
#pragma once

#include <cstdint>
#include <string_view>

namespace ravelin {

// The worker: returns when engine.running is false. The first round comes at once when the spammer
// starts, every later one an interval after the round before has finished. In turn mode a new run
// goes on with the target after the last one pressed.
void runKeySpammer();

// Carries out the toggle, start and stop requests, in this order. The command thread alone.
void applyKeySpamRequests();

// Adds a target at the end of the list; a full list stays as it is. The command thread alone.
void appendKeySpamTarget(std::uint32_t vk);
// Takes the target at a decimal index out of the list. An index that is no number or is outside the
// list changes nothing. Taking out the only target asks a running spammer to stop.
void removeKeySpamTarget(std::string_view index);
// "1" presses all targets together each round; any other text takes turns.
void setKeySpamChordMode(std::string_view text);

// Sends a release for every target in list order, whether it is down or not. From a thread of the
// engine: it takes on the layout of the program in front.
void releaseKeySpamTargets();

}  // namespace ravelin
