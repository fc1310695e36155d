#include <functional>
#include <utility>

#include "app/installer_hand_off.h"
#include "app/start_up_check.h"
#include "app/update_run.h"
#include "app/update_worker.h"
#include "app/web_view.h"
#include "updater/update_download.h"

namespace ravelin {

namespace {

UpdateWorker& updateWorker() {
    static UpdateWorker worker(
        {CheckForUpdate, DownloadAndVerify, LaunchInstaller, discardInstaller});
    return worker;
}

}  // namespace

void runUpdateCheck() {
    checkAfterStart(CheckForUpdate);
}

void startUpdate(WebView& view, const std::string& callId) {
    updateWorker().start(
        {[&view](const std::string& id, const std::string& json) { view.settle(id, false, json); },
         [&view](std::function<void()> action) { view.dispatch(std::move(action)); },
         [&view] { view.terminate(); }},
        callId);
}

void joinUpdateWorker() {
    updateWorker().stop();
}

}  // namespace ravelin
