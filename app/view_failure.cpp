#include "app/view_failure.h"

#include <array>
#include <cstdio>

#include "product.h"

namespace ravelin {
namespace {

constexpr std::uint32_t unspecified = 0x80004005;  // E_FAIL

bool isFailure(std::uint32_t code) {
    return code >= 0x80000000;
}

std::string hexadecimal(std::uint32_t code) {
    std::array<char, 11> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(code));
    return text.data();
}

std::string getItFrom(const char* address) {
    return std::string(" from:\n") + address;
}

}  // namespace

bool endsWithoutWord(std::uint32_t answer) {
    return answer == otherEngineRuns || answer == creationAborted;
}

bool isEquipmentMissing(const ViewFailure& failure) {
    return failure.reason == ViewFailureReason::libraryMissing ||
           failure.reason == ViewFailureReason::runtimeMissing;
}

ViewFailure failureOf(const ViewAttempt& attempt) {
    using enum ViewFailureReason;
    if (attempt.versionNow.empty()) return {runtimeMissing};
    if (attempt.answer == otherEngineRuns || attempt.versionBefore != attempt.versionNow)
        return {engineUpdated};
    if (attempt.answer && isFailure(*attempt.answer)) return {refused, *attempt.answer};
    if (attempt.timedOut) return {neverCame};
    return {refused, unspecified};
}

std::string viewFailureText(const ViewFailure& failure) {
    switch (failure.reason) {
        case ViewFailureReason::none:
            return {};
        case ViewFailureReason::libraryMissing:
            return "Ravelin needs the file libwebview.dll beside Ravelin.exe, and the "
                   "Microsoft Visual C++ runtime.\n\nCopy the whole program folder again, "
                   "or get the runtime" +
                   getItFrom(product::cppRuntimeUrl);
        case ViewFailureReason::runtimeMissing:
            return "Ravelin shows its window with the Microsoft Edge WebView2 runtime, "
                   "which is not installed on this computer.\n\nGet it" +
                   getItFrom(product::runtimeUrl);
        case ViewFailureReason::engineUpdated:
            return "The browser engine that shows Ravelin's windows was updated while one of them "
                   "was open.\n\nClose all windows of Ravelin and start it again.";
        case ViewFailureReason::refused:
            return "The browser engine that shows Ravelin's window refused to open it.\n\nError " +
                   hexadecimal(failure.code) +
                   "\n\nStart Ravelin again. If that does not help, restart the computer or "
                   "install the Microsoft Edge WebView2 runtime again" +
                   getItFrom(product::runtimeUrl);
        case ViewFailureReason::neverCame:
            return "The browser engine that shows Ravelin's window did not answer.\n\nStart "
                   "Ravelin again. If that does not help, restart the computer.";
        case ViewFailureReason::engineStopped:
            return "The browser engine that shows Ravelin's window has stopped working, so Ravelin "
                   "has to close. Your profiles, settings and macro are saved.\n\nStart Ravelin "
                   "again.";
    }
    return {};
}

}  // namespace ravelin
