#include "app/update_worker.h"

#include <system_error>
#include <utility>

#include "app/script_sink.h"
#include "app/update_notices.h"
#include "support/text.h"

namespace ravelin {

namespace {

constexpr char alreadyRunning[] = "An update is already in progress.";
constexpr char noLongerAvailable[] =
    "Update failed: the update is no longer available. Try again later.";
constexpr char unexpected[] = "Update failed: something unexpected happened. Try again later.";

}  // namespace

void UpdateWorker::start(const UpdatePage& page, const std::string& callId) {
    if (inProgress_.exchange(true)) {
        page.settle(callId, jsonQuote(alreadyRunning));
        return;
    }
    if (thread_.joinable()) thread_.join();
    try {
        thread_ = std::thread([this, page, callId] {
            try {
                run(page, callId);
            } catch (...) {
                giveUp(page, callId, unexpected);
            }
        });
    } catch (const std::system_error&) {
        giveUp(page, callId, unexpected);
    }
}

void UpdateWorker::stop() {
    cancel();
    if (thread_.joinable()) thread_.join();
    if (waitingInstaller_) steps_.discard(std::exchange(waitingInstaller_, {}));
}

void UpdateWorker::giveUp(const UpdatePage& page, const std::string& callId,
                          const std::string& message) {
    inProgress_ = false;
    if (!cancelled_) page.settle(callId, jsonQuote(message));
}

void UpdateWorker::run(const UpdatePage& page, const std::string& callId) {
    const UpdateCheckResult update = steps_.check();
    if (cancelled_ || !update.available) {
        giveUp(page, callId, noLongerAvailable);
        return;
    }
    const ProgressSink report = [this](std::uint64_t done, std::uint64_t total) {
        if (cancelled_) return false;
        runPageScript(updateProgressScript(done, total));
        return true;
    };
    const std::string failure = steps_.download(update.manifest, report, waitingInstaller_);
    if (cancelled_ || !failure.empty()) {
        giveUp(page, callId, failure);
        return;
    }
    runPageScript(updateInstallingScript());
    page.dispatch([this, page, callId] { handOver(page, callId); });
}

void UpdateWorker::handOver(const UpdatePage& page, const std::string& callId) {
    // The view runs what is left in its queue while it closes.
    if (cancelled_) return;
    HeldInstaller installer = std::exchange(waitingInstaller_, {});
    const std::string failure = steps_.launch(installer);
    if (failure.empty()) {
        startedInstaller_ = std::move(installer);
        page.endLoop();
    } else {
        giveUp(page, callId, failure);
    }
}

}  // namespace ravelin
