// The environment object and the one function that the host's loader asks this DLL for.
#include <windows.h>

#include "com_interfaces.h"
#include "com_object.h"
#include "controller.h"
#include "engine_sharing.h"
#include "engine_switches.h"
#include "module.h"
#include "ui_queue.h"
#include "unseen_controller.h"

namespace ravelin::browser {
namespace {

void refuse(const ComPtr<ControllerCompletedHandler>& handler, HRESULT reason) {
    UiQueue::ofThisThread().post([handler, reason] { handler->Invoke(reason, nullptr); });
}

class Environment final : public ComObject<ICoreWebView2Environment, iidEnvironment> {
  public:
    explicit Environment(std::wstring dataFolder) : dataFolder_(std::move(dataFolder)) {}

    HRESULT STDMETHODCALLTYPE
    CreateCoreWebView2Controller(HWND parent, ControllerCompletedHandler* handler) override {
        const bool unseen = parent == HWND_MESSAGE;
        if (handler == nullptr || (!unseen && IsWindow(parent) == 0)) return E_INVALIDARG;
        const EngineMood mood = engineMood();
        if (mood.reception == Reception::ignored) return S_OK;
        if (mood.reception == Reception::refused) {
            refuse(handler, mood.refusal);
            return S_OK;
        }
        if (!joinBrowser(dataFolder_)) {
            refuse(handler, HRESULT_FROM_WIN32(ERROR_INVALID_STATE));
            return S_OK;
        }
        if (unseen) {
            UiQueue::ofThisThread().post([kept = ComPtr<ControllerCompletedHandler>(handler)] {
                const auto controller = makeCom<UnseenController>();
                kept->Invoke(S_OK, controller.Get());
            });
            return S_OK;
        }
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
        *version = comText(toUtf8(engineVersion()));
        return *version == nullptr ? E_OUTOFMEMORY : S_OK;
    }

  private:
    ~Environment() override = default;

    std::wstring dataFolder_;
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
    const std::wstring dataFolder = userDataFolder == nullptr ? L"" : userDataFolder;
    UiQueue::ofThisThread().post([completed, dataFolder] {
        const auto environment = makeCom<Environment>(dataFolder);
        completed->Invoke(S_OK, environment.Get());
    });
    return S_OK;
}
