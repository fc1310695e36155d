// The environment object and the one function that the host's loader asks this DLL for.
#include <windows.h>

#include "com_interfaces.h"
#include "com_object.h"
#include "controller.h"
#include "module.h"
#include "ui_queue.h"

namespace ravelin::browser {
namespace {

class Environment final : public ComObject<ICoreWebView2Environment, iidEnvironment> {
  public:
    HRESULT STDMETHODCALLTYPE
    CreateCoreWebView2Controller(HWND parent, ControllerCompletedHandler* handler) override {
        if (handler == nullptr || IsWindow(parent) == 0) return E_INVALIDARG;
        EmbeddedBrowser::create(
            parent, [kept = ComPtr<ControllerCompletedHandler>(handler)](
                        HRESULT result, const std::shared_ptr<EmbeddedBrowser>& browser) {
                if (FAILED(result)) {
                    kept->Invoke(result, nullptr);
                    return;
                }
                const auto controller = makeCom<Controller>(browser);
                kept->Invoke(S_OK, controller.Get());
            });
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE get_BrowserVersionString(LPWSTR* version) override {
        if (version == nullptr) return E_POINTER;
        const std::wstring folder = moduleFolder();
        // <version>\EBWebView\x64, as the loader found it.
        const std::wstring above = folder.substr(0, folder.rfind(L'\\', folder.rfind(L'\\') - 1));
        *version = comText(toUtf8(above.substr(above.rfind(L'\\') + 1)));
        return *version == nullptr ? E_OUTOFMEMORY : S_OK;
    }

  private:
    ~Environment() override = default;
};

}  // namespace
}  // namespace ravelin::browser

extern "C" __declspec(dllexport) HRESULT STDMETHODCALLTYPE
    CreateWebViewEnvironmentWithOptionsInternal(bool, int, PCWSTR userDataFolder, IUnknown*,
                                                IUnknown* handler) {
    using namespace ravelin::browser;
    pinModule();
    openLog(userDataFolder == nullptr ? L"" : userDataFolder);
    if (handler == nullptr) return E_POINTER;
    ComPtr<EnvironmentCompletedHandler> completed;
    const HRESULT result = handler->QueryInterface(
        iidEnvironmentCompletedHandler, reinterpret_cast<void**>(completed.GetAddressOf()));
    if (FAILED(result)) return result;
    UiQueue::ofThisThread().post([completed] {
        const auto environment = makeCom<Environment>();
        completed->Invoke(S_OK, environment.Get());
    });
    return S_OK;
}
