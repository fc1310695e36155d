#include "app/shell.h"

#include <windows.h>
// Wants windows.h first.
#include <shellapi.h>

#include "support/utf.h"

namespace ravelin {

void openAddress(const std::string& address) {
    ShellExecuteW(nullptr, L"open", widen(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void showError(const std::string& title, const std::string& text) {
    MessageBoxW(nullptr, widen(text).c_str(), widen(title).c_str(), MB_OK | MB_ICONERROR);
}

}  // namespace ravelin
