#include <windows.h>

#include <memory>
#include <utility>

#include "app/browser_handler_win32.h"
#include "app/page_keeper.h"
#include "app/page_recovery.h"
#include "app/web_view.h"

namespace ravelin {
namespace {

constexpr GUID processFailedHandlerId = {
    0x79e0aea4, 0x990b, 0x42d9, {0xaa, 0x1d, 0x0f, 0xcc, 0x2e, 0x5b, 0xc7, 0xf1}};

// Calls `ended` from the message loop for each process of the engine that has ended.
void watchProcesses(void* browserController, std::function<void(EngineProcess)> ended) {
    if (browserController == nullptr) return;
    BrowserView* view = nullptr;
    if (FAILED(static_cast<BrowserController*>(browserController)->getBrowserView(&view)) ||
        view == nullptr)
        return;
    const HeldHandler<BrowserView*, ProcessFailedArguments*> handler(
        processFailedHandlerId,
        [ended = std::move(ended)](BrowserView*, ProcessFailedArguments* arguments) {
            int kind = 0;
            if (arguments != nullptr && SUCCEEDED(arguments->getProcessFailedKind(&kind)))
                ended(static_cast<EngineProcess>(kind));
        });
    BrowserEventToken token;
    view->addProcessFailed(handler.get(), &token);
    view->Release();
}

}  // namespace

void keepPage(WebView& view, std::function<void()> showPage) {
    watchProcesses(view.browserController(),
                   [&view, showPage = std::move(showPage),
                    recovery = std::make_shared<PageRecovery>()](auto ended) {
                       switch (recovery->judge(ended, GetTickCount64())) {
                           case Recovery::none:
                               break;
                           case Recovery::showPageAgain:
                               // Later: the engine is still busy with what has ended.
                               view.dispatch(showPage);
                               break;
                           case Recovery::giveUp:
                               view.breakOff({ViewFailureReason::engineStopped});
                               break;
                       }
                   });
}

}  // namespace ravelin
