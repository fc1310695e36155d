#include "app/engine_question_win32.h"

#include <windows.h>

#include <string>
#include <utility>

#include "app/browser_handler_win32.h"
#include "app/engine_runtime_win32.h"

namespace ravelin {
namespace {

constexpr GUID environmentHandlerId = {
    0x4e8a3389, 0xc9d8, 0x4bd2, {0xb6, 0xb5, 0x12, 0x4f, 0xee, 0x6c, 0xc1, 0x4d}};
constexpr GUID controllerHandlerId = {
    0x6c4819f3, 0xc9b7, 0x4260, {0x81, 0x27, 0xc9, 0xf5, 0xbd, 0xe7, 0xf6, 0x8c}};

constexpr int installedRuntime = 0;  // as opposed to one that a program brings along

using CreateEnvironment = HRESULT STDMETHODCALLTYPE(bool checkRunningInstance, int runtimeType,
                                                    PCWSTR dataFolder, IUnknown* options,
                                                    IUnknown* handler);

// Null when the runtime is not whole. Never freed: the engine keeps threads of its own.
CreateEnvironment* findCreateEnvironment() {
    const std::wstring library = engineFolder() + L"\\EBWebView\\x64\\EmbeddedBrowserWebView.dll";
    const HMODULE module = LoadLibraryExW(
        library.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (module == nullptr) return nullptr;
    // The cast through void(*)() is the one that compilers accept for a function of another type.
    return reinterpret_cast<CreateEnvironment*>(reinterpret_cast<void (*)()>(
        GetProcAddress(module, "CreateWebViewEnvironmentWithOptionsInternal")));
}

}  // namespace

void askEngine(std::function<void(std::uint32_t answer)> answered) {
    const auto tell = [answered = std::move(answered)](HRESULT result) {
        answered(static_cast<std::uint32_t>(result));
    };
    const HeldHandler<HRESULT, BrowserEnvironment*> onEnvironment(
        environmentHandlerId, [tell](HRESULT result, BrowserEnvironment* environment) {
            const HeldHandler<HRESULT, BrowserController*> onController(
                controllerHandlerId, [tell](HRESULT outcome, BrowserController* controller) {
                    if (controller != nullptr) controller->close();
                    tell(outcome);
                });
            if (SUCCEEDED(result) && environment != nullptr)
                result = environment->createController(HWND_MESSAGE, onController.get());
            if (FAILED(result)) tell(result);
        });
    auto* const create = findCreateEnvironment();
    const HRESULT result = create == nullptr
                               ? HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND)
                               : create(true, installedRuntime, engineDataFolder().c_str(), nullptr,
                                        onEnvironment.get());
    if (FAILED(result)) tell(result);
}

}  // namespace ravelin
