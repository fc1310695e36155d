// What the engine's threads ask of the system for themselves.
#include <windows.h>

#include "input/platform.h"

namespace ravelin::platform {
namespace {

// Null where the system is older than the function.
template <class Function>
Function* findFunction(const wchar_t* library, const char* name) {
    // The cast through void(*)() is the one that compilers accept for a function of another type.
    return reinterpret_cast<Function*>(
        reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(library), name)));
}

// From Windows 10 1607 on; the second kind from 1703 on.
void seePhysicalPixels() {
    const auto setContext =
        findFunction<HANDLE WINAPI(HANDLE context)>(L"user32.dll", "SetThreadDpiAwarenessContext");
    if (setContext == nullptr) return;
    const auto perMonitorAware = reinterpret_cast<HANDLE>(-3);
    const auto perMonitorAwareV2 = reinterpret_cast<HANDLE>(-4);
    if (setContext(perMonitorAwareV2) == nullptr) setContext(perMonitorAware);
}

// From Windows 10 1709 on: the thread decides about its own execution speed, and wants all of it.
void askForFullSpeed() {
    struct PowerThrottling {
        ULONG version = 1;
        ULONG controlMask = 1;  // the execution speed
        ULONG stateMask = 0;
    };
    constexpr int threadPowerThrottling = 3;
    const auto setInformation =
        findFunction<BOOL WINAPI(HANDLE thread, int kind, void* information, DWORD size)>(
            L"kernel32.dll", "SetThreadInformation");
    PowerThrottling fullSpeed;
    if (setInformation != nullptr)
        setInformation(GetCurrentThread(), threadPowerThrottling, &fullSpeed, sizeof fullSpeed);
}

}  // namespace

void enterWorkerThread() {
    seePhysicalPixels();
    askForFullSpeed();
}

void adoptForegroundLayout() {
    const HWND front = GetForegroundWindow();
    const DWORD thread = front != nullptr ? GetWindowThreadProcessId(front, nullptr) : 0;
    if (thread == 0) return;
    const HKL layout = GetKeyboardLayout(thread);
    if (layout != nullptr && layout != GetKeyboardLayout(0)) ActivateKeyboardLayout(layout, 0);
}

}  // namespace ravelin::platform
