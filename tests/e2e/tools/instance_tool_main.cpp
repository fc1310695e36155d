// In the place of a first instance of the program that runs elevated, for the end-to-end tests:
// holds its mutex so that nobody may open it.
//
//   instance_tool.exe [TITLE]     shows a minimised window of that title, if any, and says "ready"
#include <windows.h>

#include <cstdio>

namespace {

// Nobody is given any access to what is made with these.
struct ClosedToAll {
    ACL nobody{};
    SECURITY_DESCRIPTOR descriptor{};
    SECURITY_ATTRIBUTES attributes{sizeof attributes, &descriptor, FALSE};

    bool make() {
        return InitializeAcl(&nobody, sizeof nobody, ACL_REVISION) != 0 &&
               InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) != 0 &&
               SetSecurityDescriptorDacl(&descriptor, TRUE, &nobody, FALSE) != 0;
    }
};

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

bool showWindow(const wchar_t* title) {
    WNDCLASSW kind{};
    kind.lpfnWndProc = procedure;
    kind.lpszClassName = L"First instance";
    kind.hInstance = GetModuleHandleW(nullptr);
    if (RegisterClassW(&kind) == 0) return false;
    const HWND window = CreateWindowW(kind.lpszClassName, title, WS_OVERLAPPEDWINDOW, 100, 100, 400,
                                      300, nullptr, nullptr, kind.hInstance, nullptr);
    if (window == nullptr) return false;
    ShowWindow(window, SW_SHOWMINIMIZED);
    return true;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    ClosedToAll closed;
    if (!closed.make() ||
        CreateMutexW(&closed.attributes, TRUE, L"Local\\RavelinUI_SingleInstance") == nullptr)
        return 1;
    if (__argc > 1 && !showWindow(__wargv[1])) return 2;
    std::puts("ready");
    std::fflush(stdout);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}
