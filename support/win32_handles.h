// Owners for the things that Windows hands out and wants back: one generic type, one line a kind.
//
// An owner can be moved but not copied, closes what it holds before it takes something new, and
// leaves the thread's last error as it was, so a failed creation can still be asked why it failed.
// For the Windows half only.
#pragma once

#include <windows.h>
// Needs the types of windows.h.
#include <bcrypt.h>
#include <objbase.h>
#include <timeapi.h>
#include <winhttp.h>
#include <wtsapi32.h>

#include <cstdint>
#include <type_traits>
#include <utility>

namespace ravelin {

// `close` is called with what was held; `none` is the value that stands for nothing.
template <class T, auto close, std::intptr_t none = 0>
class Owner {
  public:
    Owner() noexcept = default;
    explicit Owner(T value) noexcept : value_(value) {}
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    Owner(Owner&& other) noexcept : value_(other.release()) {}
    Owner& operator=(Owner&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    ~Owner() { reset(); }

    T get() const noexcept { return value_; }
    explicit operator bool() const noexcept { return value_ != empty(); }

    void reset(T value = empty()) noexcept {
        if (value == value_) return;
        const T old = std::exchange(value_, empty());
        if (old != empty()) {
            const DWORD lastError = GetLastError();
            close(old);
            SetLastError(lastError);
        }
        value_ = value;
    }

    // For functions that store what they create: closes the old value and gives the place.
    T* put() noexcept {
        reset();
        return &value_;
    }

    // Gives the value away; the caller closes it from here on.
    [[nodiscard]] T release() noexcept { return std::exchange(value_, empty()); }

  private:
    static T empty() noexcept {
        if constexpr (std::is_pointer_v<T>) {
            return reinterpret_cast<T>(none);
        } else {
            return static_cast<T>(none);
        }
    }

    T value_ = empty();
};

// Closing functions that need more than the value.
namespace closing {

inline void algorithm(BCRYPT_ALG_HANDLE value) {
    BCryptCloseAlgorithmProvider(value, 0);
}
inline void windowClass(ATOM value) {
    UnregisterClassW(MAKEINTATOM(value), GetModuleHandleW(nullptr));
}
inline void threadTimer(UINT_PTR id) {
    KillTimer(nullptr, id);
}
inline void comApartment(bool) {
    CoUninitialize();
}

}  // namespace closing

using KernelHandle = Owner<HANDLE, CloseHandle>;  // null stands for nothing: events, threads, ...
using EventHandle = KernelHandle;
using ProcessHandle = KernelHandle;
using TokenHandle = KernelHandle;
using FileHandle = Owner<HANDLE, CloseHandle, -1>;  // files and pipes: INVALID_HANDLE_VALUE
using FindHandle = Owner<HANDLE, FindClose, -1>;
using RegistryKey = Owner<HKEY, RegCloseKey>;
using ModuleHandle = Owner<HMODULE, FreeLibrary>;
using LocalMemory = Owner<HLOCAL, LocalFree>;
using LocalSecurityDescriptor = Owner<PSECURITY_DESCRIPTOR, LocalFree>;
using LocalSid = Owner<PSID, LocalFree>;    // from a text
using AllocatedSid = Owner<PSID, FreeSid>;  // from its parts
using LocalAcl = Owner<PACL, LocalFree>;
using LocalText = Owner<LPWSTR, LocalFree>;
using LocalArguments = Owner<LPWSTR*, LocalFree>;  // from CommandLineToArgvW
using TaskText = Owner<LPWSTR, CoTaskMemFree>;
using HookHandle = Owner<HHOOK, UnhookWindowsHookEx>;
using WindowHandle = Owner<HWND, DestroyWindow>;        // destroyed by the thread that made it
using WindowClass = Owner<ATOM, closing::windowClass>;  // of this program
using SessionNotification = Owner<HWND, WTSUnRegisterSessionNotification>;
using ThreadTimer = Owner<UINT_PTR, closing::threadTimer>;  // of the calling thread, no window's
using TimerPeriod = Owner<UINT, timeEndPeriod>;             // milliseconds, after timeBeginPeriod
using ComApartment = Owner<bool, closing::comApartment>;    // true: to be left again
using HttpHandle = Owner<HINTERNET, WinHttpCloseHandle>;
using CryptAlgorithm = Owner<BCRYPT_ALG_HANDLE, closing::algorithm>;
using CryptHash = Owner<BCRYPT_HASH_HANDLE, BCryptDestroyHash>;
using CryptKey = Owner<BCRYPT_KEY_HANDLE, BCryptDestroyKey>;

}  // namespace ravelin
