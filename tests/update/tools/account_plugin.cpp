// Stands for the setup program's plug-in that says what the user is: answers with the value of the
// switch /ACCOUNT=, and "Admin" without one.
#include <windows.h>

#include <string>

struct Element {
    Element* next;
    wchar_t text[1];
};

extern "C" __declspec(dllexport) void GetAccountType(HWND, int textLength, wchar_t*, Element** top,
                                                     void*) {
    const std::wstring line = GetCommandLineW();
    const std::wstring name = L"/ACCOUNT=";
    const std::size_t at = line.find(name);
    std::wstring account = L"Admin";
    if (at != std::wstring::npos) {
        const std::size_t begin = at + name.size();
        account = line.substr(begin, line.find(L' ', begin) - begin);
    }
    auto* const element = static_cast<Element*>(
        GlobalAlloc(GPTR, sizeof(Element) + static_cast<SIZE_T>(textLength) * sizeof(wchar_t)));
    if (element == nullptr) return;
    lstrcpynW(element->text, account.c_str(), textLength);
    element->next = *top;
    *top = element;
}
