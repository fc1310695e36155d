// Carries an update out when the page asks for it: checks again, downloads with progress, hands
// over to the installer.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <utility>

#include "updater/update_check.h"
#include "updater/update_download.h"

namespace ravelin {

// The steps of an update. Those that can fail return a message for the user, empty on success.
struct UpdateSteps {
    std::function<UpdateCheckResult()> check;
    std::function<std::string(const UpdateManifestInfo& manifest, const ProgressSink& sink,
                              HeldInstaller& installer)>
        download;
    // Called on the user-interface thread. The installer stays held when it was started.
    std::function<std::string(HeldInstaller& installer)> launch;
    // Removes an installer that nobody will start.
    std::function<void(HeldInstaller installer)> discard;
};

// The page that asked.
struct UpdatePage {
    // Resolves the page's call with a JSON value. Any thread.
    std::function<void(const std::string& callId, const std::string& json)> settle;
    // Runs the action on the user-interface thread. Any thread.
    std::function<void(std::function<void()> action)> dispatch;
    // Ends the message loop, and with it the program.
    std::function<void()> endLoop;
};

// One update at a time, on a thread of its own. start() and stop() belong to the user-interface
// thread; the object outlives the message loop.
class UpdateWorker {
  public:
    explicit UpdateWorker(UpdateSteps steps) : steps_(std::move(steps)) {}
    UpdateWorker(const UpdateWorker&) = delete;
    UpdateWorker& operator=(const UpdateWorker&) = delete;
    ~UpdateWorker() { stop(); }

    // Begins an update, or settles the call at once when one is in progress. The call is settled
    // when the update fails; when it succeeds the loop ends instead.
    void start(const UpdatePage& page, const std::string& callId);

    // Tells a running update, and every later one, to give up without settling its call. Any
    // thread.
    void cancel() { cancelled_ = true; }

    // For the shut-down: cancels, waits for the end of a running update and removes an installer
    // that will not be started any more.
    void stop();

  private:
    void run(const UpdatePage& page, const std::string& callId);
    void handOver(const UpdatePage& page, const std::string& callId);
    // Ends the update; the call is settled with the message unless the program ends as well.
    void giveUp(const UpdatePage& page, const std::string& callId, const std::string& message);

    UpdateSteps steps_;
    std::atomic<bool> inProgress_{false};
    std::atomic<bool> cancelled_{false};
    std::thread thread_;
    // Downloaded and waiting for its start. Written by the worker before it dispatches the
    // hand-over, read by the user-interface thread there or after the worker's end.
    HeldInstaller waitingInstaller_;
    // A setup program opens its own file again when it begins to work. Held until this program has
    // ended, nothing else can be there by then.
    HeldInstaller startedInstaller_;
};

}  // namespace ravelin
