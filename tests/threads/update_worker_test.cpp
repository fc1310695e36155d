#include "app/update_worker.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <deque>
#include <future>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "app/script_sink.h"

namespace ravelin {
namespace {

constexpr char unavailable[] =
    "\"Update failed: the update is no longer available. Try again later.\"";

// The page and its message loop, which a test runs on its own thread.
class Page {
  public:
    UpdatePage page() {
        return {[this](const std::string& id, const std::string& json) {
                    post([this, id, json] { settled.push_back(id + " " + json); });
                },
                [this](std::function<void()> action) { post(std::move(action)); },
                [this] { loopEnded = true; }};
    }

    // Runs the loop until the condition holds.
    template <class Condition>
    void runUntil(Condition condition) {
        while (!condition()) {
            std::unique_lock lock(mutex_);
            arrived_.wait(lock, [this] { return !queue_.empty(); });
            const auto action = std::move(queue_.front());
            queue_.pop_front();
            lock.unlock();
            action();
        }
    }
    void runUntilSettled(std::size_t calls = 1) {
        runUntil([&] { return settled.size() >= calls; });
    }
    // What a closing view does with what is left in its queue.
    void drain() {
        const std::lock_guard lock(mutex_);
        for (const auto& action : queue_)
            action();
        queue_.clear();
    }

    std::vector<std::string> settled;
    bool loopEnded = false;

  private:
    void post(std::function<void()> action) {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(action));
        arrived_.notify_one();
    }

    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<std::function<void()>> queue_;
};

// An update that works, with a place in every step where a test can interfere.
class UpdateWorkerTest : public testing::Test {
  protected:
    UpdateWorkerTest() {
        setPageScriptSink([this](const std::string& script) {
            const std::lock_guard lock(mutex_);
            scripts_.push_back(script);
        });
    }
    ~UpdateWorkerTest() override {
        worker.reset();
        setPageScriptSink({});
    }

    UpdateSteps steps() {
        return {
            [this] {
                ++checks;
                onCheck();
                UpdateCheckResult result;
                result.available = available;
                result.manifest.version = "1.0.2";
                return result;
            },
            [this](const UpdateManifestInfo& manifest, const ProgressSink& sink,
                   HeldInstaller& installer) -> std::string {
                ++downloads;
                EXPECT_EQ(manifest.version, "1.0.2");
                sinkAnswers.push_back(sink(0, 50));
                onDownload();
                sinkAnswers.push_back(sink(50, 50));
                if (!downloadFailure.empty()) return downloadFailure;
                installer = HeldInstaller(L"T:\\folder\\installer.exe", hold);
                return {};
            },
            [this](HeldInstaller& installer) {
                EXPECT_TRUE(installer);
                launched.push_back(installer.path());
                if (!launchFailure.empty()) installer.release();
                return launchFailure;
            },
            [this](HeldInstaller installer) { discarded.push_back(installer.release()); },
        };
    }

    // Makes the step cancel the update, and waits until it has once the worker is started.
    void cancelDuring(std::function<void()>& step) {
        step = [this] {
            worker->cancel();
            cancelled_.set_value();
        };
    }
    void startAndAwaitCancel() {
        worker->start(page.page(), "1");
        cancelled_.get_future().wait();
    }

    bool isHeld() const { return hold.use_count() > 1; }

    std::vector<std::string> scripts() {
        const std::lock_guard lock(mutex_);
        return scripts_;
    }

    bool available = true;
    std::string downloadFailure;
    std::string launchFailure;
    // Stands for the handle; every holder has a copy.
    const std::shared_ptr<void> hold = std::make_shared<int>();
    std::function<void()> onCheck = [] {};
    std::function<void()> onDownload = [] {};

    std::atomic<int> checks{0};
    int downloads = 0;
    std::vector<bool> sinkAnswers;
    std::vector<std::wstring> launched;
    std::vector<std::wstring> discarded;

    Page page;
    std::unique_ptr<UpdateWorker> worker = std::make_unique<UpdateWorker>(steps());

  private:
    std::mutex mutex_;
    std::vector<std::string> scripts_;
    std::promise<void> cancelled_;
};

TEST_F(UpdateWorkerTest, AnUpdateReportsHandsOverAndEndsTheLoop) {
    worker->start(page.page(), "1");
    page.runUntil([&] { return page.loopEnded; });
    worker->stop();
    EXPECT_EQ(scripts(),
              (std::vector<std::string>{"if (window.onUpdateProgress) onUpdateProgress(0,50);",
                                        "if (window.onUpdateProgress) onUpdateProgress(50,50);",
                                        "if (window.onUpdateInstalling) onUpdateInstalling();"}));
    EXPECT_EQ(launched, (std::vector<std::wstring>{L"T:\\folder\\installer.exe"}));
    EXPECT_TRUE(discarded.empty());
    EXPECT_TRUE(page.settled.empty());
}

TEST_F(UpdateWorkerTest, TheInstallerIsHeldUntilTheProgramEnds) {
    onDownload = [&] { EXPECT_FALSE(isHeld()); };
    worker->start(page.page(), "1");
    page.runUntil([&] { return page.loopEnded; });
    EXPECT_TRUE(isHeld());
    worker->stop();
    EXPECT_TRUE(isHeld());
    worker.reset();
    EXPECT_FALSE(isHeld());
    EXPECT_TRUE(discarded.empty());
}

TEST_F(UpdateWorkerTest, AnUpdateThatIsGoneSettlesTheCall) {
    available = false;
    worker->start(page.page(), "7");
    page.runUntilSettled();
    EXPECT_EQ(page.settled, (std::vector<std::string>{std::string("7 ") + unavailable}));
    EXPECT_EQ(downloads, 0);
    EXPECT_TRUE(scripts().empty());
}

TEST_F(UpdateWorkerTest, ADownloadsFailureSettlesTheCallWithItsMessage) {
    downloadFailure = "Update failed: \"reason\".";
    worker->start(page.page(), "7");
    page.runUntilSettled();
    EXPECT_EQ(page.settled, (std::vector<std::string>{R"(7 "Update failed: \"reason\".")"}));
    EXPECT_TRUE(launched.empty());
    EXPECT_EQ(scripts().size(), 2U);
}

TEST_F(UpdateWorkerTest, AnInstallerThatDoesNotStartSettlesTheCallAndTheProgramGoesOn) {
    launchFailure = "Update failed: could not start the installer.";
    worker->start(page.page(), "7");
    page.runUntilSettled();
    EXPECT_EQ(page.settled, (std::vector<std::string>{"7 \"" + launchFailure + "\""}));
    EXPECT_FALSE(page.loopEnded);
    EXPECT_FALSE(isHeld());
    worker->stop();
    EXPECT_TRUE(discarded.empty());
}

TEST_F(UpdateWorkerTest, AFailedUpdateCanBeTriedAgain) {
    available = false;
    for (std::size_t i = 1; i <= 3; ++i) {
        worker->start(page.page(), std::to_string(i));
        page.runUntilSettled(i);
    }
    available = true;
    worker->start(page.page(), "4");
    page.runUntil([&] { return page.loopEnded; });
    EXPECT_EQ(checks, 4);
}

TEST_F(UpdateWorkerTest, ASecondUpdateIsRefusedAtOnceWhileOneRuns) {
    std::promise<void> answered;
    onCheck = [&] { answered.get_future().wait(); };
    available = false;
    worker->start(page.page(), "1");
    worker->start(page.page(), "2");
    page.runUntilSettled();
    EXPECT_EQ(page.settled, (std::vector<std::string>{"2 \"An update is already in progress.\""}));
    answered.set_value();
    page.runUntilSettled(2);
    EXPECT_EQ(page.settled[1], std::string("1 ") + unavailable);
    EXPECT_EQ(checks, 1);
}

TEST_F(UpdateWorkerTest, ASecondUpdateIsRefusedUntilTheInstallerStarts) {
    worker->start(page.page(), "1");
    page.runUntil([&] { return !launched.empty(); });
    worker->start(page.page(), "2");
    page.runUntilSettled();
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(page.settled, (std::vector<std::string>{"2 \"An update is already in progress.\""}));
}

TEST_F(UpdateWorkerTest, CancelledDuringTheCheckItDownloadsNothingAndSettlesNothing) {
    for (const bool found : {true, false}) {
        available = found;
        onCheck = [&] { worker->cancel(); };
        worker->start(page.page(), "1");
        worker->stop();
        page.drain();
        EXPECT_EQ(downloads, 0);
        EXPECT_TRUE(page.settled.empty());
        EXPECT_TRUE(discarded.empty());
    }
}

TEST_F(UpdateWorkerTest, CancelledDuringTheDownloadItStopsAndSettlesNothing) {
    cancelDuring(onDownload);
    downloadFailure = "Update failed: stopped.";
    startAndAwaitCancel();
    worker->stop();
    page.drain();
    EXPECT_EQ(sinkAnswers, (std::vector<bool>{true, false}));
    EXPECT_EQ(scripts().size(), 1U);
    EXPECT_TRUE(page.settled.empty());
    EXPECT_TRUE(discarded.empty());
}

TEST_F(UpdateWorkerTest, CancelledAfterTheDownloadItRemovesTheInstaller) {
    cancelDuring(onDownload);
    startAndAwaitCancel();
    worker->stop();
    page.drain();
    EXPECT_TRUE(launched.empty());
    EXPECT_EQ(discarded, (std::vector<std::wstring>{L"T:\\folder\\installer.exe"}));
    EXPECT_FALSE(isHeld());
    EXPECT_EQ(scripts().size(), 1U);
    EXPECT_TRUE(page.settled.empty());
}

TEST_F(UpdateWorkerTest, AHandOverThatIsLateForTheLoopStartsNothing) {
    worker->start(page.page(), "1");
    // The loop has ended; whatever the worker dispatches stays in the queue.
    while (scripts().size() < 3)
        std::this_thread::yield();
    worker->stop();
    page.drain();
    EXPECT_TRUE(launched.empty());
    EXPECT_EQ(discarded, (std::vector<std::wstring>{L"T:\\folder\\installer.exe"}));
    EXPECT_FALSE(isHeld());
    EXPECT_FALSE(page.loopEnded);
    EXPECT_TRUE(page.settled.empty());
}

TEST_F(UpdateWorkerTest, AnErrorInAStepIsAFailureLikeAnother) {
    onCheck = [] { throw std::runtime_error("no memory"); };
    worker->start(page.page(), "1");
    page.runUntilSettled();
    EXPECT_EQ(page.settled,
              (std::vector<std::string>{
                  "1 \"Update failed: something unexpected happened. Try again later.\""}));
    onCheck = [] {};
    worker->start(page.page(), "2");
    page.runUntil([&] { return page.loopEnded; });
}

TEST_F(UpdateWorkerTest, StoppingWithoutAnUpdateIsNothing) {
    worker->stop();
    worker->stop();
    EXPECT_TRUE(discarded.empty());
}

}  // namespace
}  // namespace ravelin
