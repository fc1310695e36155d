#include "packaging/setup/plugin/shell_start_win32.h"

#include <windows.h>
// These want windows.h first.
#include <exdisp.h>
#include <oleauto.h>
#include <servprov.h>
#include <shldisp.h>
#include <shlobj.h>

#include "support/win32_handles.h"

namespace ravelin {

namespace {

template <class T>
void release(T* pointer) {
    pointer->Release();
}
template <class T>
using ComPointer = Owner<T*, release<T>>;
using BasicText = Owner<BSTR, SysFreeString>;

template <class T>
void** slot(ComPointer<T>& pointer) {
    return reinterpret_cast<void**>(pointer.put());
}

template <class T, class From>
ComPointer<T> ask(const ComPointer<From>& from) {
    ComPointer<T> to;
    if (from) from.get()->QueryInterface(__uuidof(T), slot(to));
    return to;
}

// The view of the desktop, which lives in the shell's process.
ComPointer<IShellView> desktopView() {
    ComPointer<IShellWindows> windows;
    if (FAILED(CoCreateInstance(CLSID_ShellWindows, nullptr, CLSCTX_LOCAL_SERVER,
                                __uuidof(IShellWindows), slot(windows))))
        return {};
    VARIANT desktopPlace{};
    desktopPlace.vt = VT_I4;
    desktopPlace.lVal = CSIDL_DESKTOP;
    VARIANT none{};
    LONG window = 0;
    ComPointer<IDispatch> desktop;
    // Succeeds with S_FALSE where there is no desktop.
    windows.get()->FindWindowSW(&desktopPlace, &none, SWC_DESKTOP, &window, SWFO_NEEDDISPATCH,
                                desktop.put());
    const auto services = ask<IServiceProvider>(desktop);
    ComPointer<IShellBrowser> browser;
    if (services)
        services.get()->QueryService(SID_STopLevelBrowser, __uuidof(IShellBrowser), slot(browser));
    ComPointer<IShellView> view;
    if (browser) browser.get()->QueryActiveShellView(view.put());
    return view;
}

ComPointer<IShellDispatch2> desktopShell() {
    const auto view = desktopView();
    ComPointer<IDispatch> background;
    if (view) view.get()->GetItemObject(SVGIO_BACKGROUND, __uuidof(IDispatch), slot(background));
    const auto folder = ask<IShellFolderViewDual>(background);
    ComPointer<IDispatch> application;
    if (folder) folder.get()->get_Application(application.put());
    return ask<IShellDispatch2>(application);
}

VARIANT textArgument(const BasicText& text) {
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = text.get();
    return argument;
}

}  // namespace

bool startByShell(const std::wstring& program) {
    const HRESULT entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const ComApartment apartment(SUCCEEDED(entered));
    const auto shell = desktopShell();
    if (!shell) return false;
    const BasicText file(SysAllocString(program.c_str()));
    const BasicText folder(SysAllocString(program.substr(0, program.find_last_of(L'\\')).c_str()));
    VARIANT show{};
    show.vt = VT_I4;
    show.lVal = SW_SHOWNORMAL;
    return shell.get()->ShellExecute(file.get(), VARIANT{}, textArgument(folder), VARIANT{},
                                     show) == S_OK;
}

}  // namespace ravelin
