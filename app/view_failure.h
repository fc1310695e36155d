// Why a window of the program has no page to show.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ravelin {

enum class ViewFailureReason {
    none,
    libraryMissing,  // the view library, or what that needs itself
    runtimeMissing,  // the browser runtime
    engineUpdated,   // the installed engine differs from the one that runs
    refused,         // by the engine, with a code
    neverCame,       // the engine did not answer within the limit
    engineStopped,   // after the view was there
};

struct ViewFailure {
    ViewFailureReason reason = ViewFailureReason::none;
    std::uint32_t code = 0;  // the engine's HRESULT, for `refused`

    friend bool operator==(const ViewFailure&, const ViewFailure&) = default;
};

// What is known when the view library has given no view.
struct ViewAttempt {
    std::string versionBefore;  // of the installed engine; empty when there is none
    std::string versionNow;
    // What the engine answered to a request for a view; nothing when it did not answer.
    std::optional<std::uint32_t> answer;
    bool timedOut = false;
};

// An engine whose version differs from that of the browser process that other windows of the
// program share refuses with this: HRESULT_FROM_WIN32(ERROR_INVALID_STATE).
inline constexpr std::uint32_t otherEngineRuns = 0x8007139F;
inline constexpr std::uint32_t creationAborted = 0x80004004;  // E_ABORT

// The view library returns from these two without a word and waits on for ever; after every other
// refusal it tries again a few times and then gives up by itself.
bool endsWithoutWord(std::uint32_t answer);

// Whether something has to be installed, or copied again, before there can be a view.
bool isEquipmentMissing(const ViewFailure& failure);

ViewFailure failureOf(const ViewAttempt& attempt);

// What the user is told; UTF-8, empty for `none`.
std::string viewFailureText(const ViewFailure& failure);

// The same for a panel that is about to be shown in a window of its own.
inline constexpr char engineUpdatedForPanel[] =
    "Panels cannot open in windows of their own because the browser engine of this computer was "
    "updated. Close all windows of Ravelin and start it again.";

}  // namespace ravelin
