#include "app/process_setup.h"

#include <windows.h>
// These want windows.h first.
#include <objbase.h>
#include <timeapi.h>

#include <iomanip>
#include <sstream>

namespace ravelin {
namespace {

constexpr const wchar_t* browserVariables[] = {
    L"WEBVIEW2_BROWSER_EXECUTABLE_FOLDER", L"WEBVIEW2_ADDITIONAL_BROWSER_ARGUMENTS",
    L"WEBVIEW2_USER_DATA_FOLDER",          L"WEBVIEW2_RELEASE_CHANNEL_PREFERENCE",
    L"WEBVIEW2_PIPE_FOR_SCRIPT_DEBUGGER",  L"WEBVIEW2_WAIT_FOR_SCRIPT_DEBUGGER",
};

constexpr UINT timerPeriodMs = 1;

void (*saveOnCrash)() = nullptr;

LONG WINAPI onUnhandledException(EXCEPTION_POINTERS*) {
    // A second crash inside the save must not come back here.
    if (const auto save = saveOnCrash) {
        saveOnCrash = nullptr;
        save();
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

// The power-throttling record of newer systems; older headers lack it.
struct PowerThrottlingState {
    ULONG version;
    ULONG controlMask;
    ULONG stateMask;
};
constexpr auto processPowerThrottling = static_cast<PROCESS_INFORMATION_CLASS>(4);
constexpr ULONG powerThrottlingVersion = 1;
constexpr ULONG ignoreTimerResolution = 4;

}  // namespace

void restrictLibrarySearch() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

void removeBrowserVariables() {
    for (const wchar_t* name : browserVariables)
        SetEnvironmentVariableW(name, nullptr);
}

void setBrowserGround(std::uint32_t colour) {
    // Eight digits; the first two say how opaque it is.
    std::wostringstream value;
    value << L"FF" << std::hex << std::setw(6) << std::setfill(L'0') << colour;
    SetEnvironmentVariableW(L"WEBVIEW2_DEFAULT_BACKGROUND_COLOR", value.str().c_str());
}

void markDpiAware() {
    SetProcessDPIAware();
}

ComSession::ComSession()
    : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}

void ComSession::leave() const {
    if (SUCCEEDED(result_) || result_ == RPC_E_CHANGED_MODE) CoUninitialize();
}

void requestTimerResolution() {
    timeBeginPeriod(timerPeriodMs);
}

void releaseTimerResolution() {
    timeEndPeriod(timerPeriodMs);
}

void optOutOfTimerThrottling() {
    PowerThrottlingState state{powerThrottlingVersion, ignoreTimerResolution, 0};
    SetProcessInformation(GetCurrentProcess(), processPowerThrottling, &state, sizeof state);
}

void installCrashHandler(void (*save)()) {
    saveOnCrash = save;
    SetUnhandledExceptionFilter(&onUnhandledException);
}

}  // namespace ravelin
