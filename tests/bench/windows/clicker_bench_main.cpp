// The auto clicker's period beside a bare loop of one wait and two SendInput calls, in turns in the
// same run, so that both see the same machine. Sends real clicks with no button flag: nothing on
// the desktop is clicked, while the path through the system's input stream is the same.
#include <windows.h>
// Wants windows.h first.
#include <timeapi.h>

#include <algorithm>
#include <cstdio>
#include <thread>
#include <vector>

#include "input/auto_clicker.h"
#include "input/engine_state.h"
#include "input/platform.h"
#include "input/tool_settings.h"
#include "support/win32_handles.h"

namespace {

using namespace ravelin;

constexpr int noButton = 3;

struct Case {
    int intervalMs;
    int clicks;
};
constexpr Case cases[] = {{1, 600}, {5, 300}, {50, 40}};
constexpr int turns = 5;

double secondsSince(std::int64_t began) {
    return static_cast<double>(platform::counter() - began) /
           static_cast<double>(platform::counterFrequency());
}

double clickerPeriodMs(const Case& c) {
    toolSettings.sms = c.intervalMs;
    toolSettings.sbtn = noButton;
    toolSettings.rptMode = 0;
    toolSettings.rptTimes = c.clicks;
    const auto began = platform::counter();
    engine.autoClicking.exchange(true);
    platform::signal(platform::Event::clickerWake);
    while (engine.autoClicking.load())
        Sleep(1);
    const double elapsed = secondsSince(began);
    // The worker resets its count once it is idle again; only then may the next run begin.
    while (engine.clickCount.load() != 0)
        Sleep(1);
    return elapsed * 1000.0 / c.clicks;
}

double bareLoopPeriodMs(const Case& c) {
    const KernelHandle wake(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    const KernelHandle quit(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const HANDLE events[] = {wake.get(), quit.get()};
    INPUT input{};
    input.type = INPUT_MOUSE;
    const auto began = platform::counter();
    for (int i = 0; i < c.clicks; ++i) {
        SendInput(1, &input, sizeof input);
        SendInput(1, &input, sizeof input);
        WaitForMultipleObjects(2, events, FALSE, static_cast<DWORD>(c.intervalMs));
    }
    return secondsSince(began) * 1000.0 / c.clicks;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main() {
    const TimerPeriod period(timeBeginPeriod(1) == TIMERR_NOERROR ? 1U : 0U);
    engine.counterFrequency = platform::counterFrequency();
    platform::createEvents();
    std::thread worker(runAutoClicker);

    std::printf("%-10s %14s %14s %10s %12s   (goal: within 3 %%)\n", "interval", "clicker",
                "bare loop", "ratio", "clicks/s");
    for (const Case& c : cases) {
        std::vector<double> clicker;
        std::vector<double> bare;
        for (int turn = 0; turn < turns; ++turn) {
            bare.push_back(bareLoopPeriodMs(c));
            clicker.push_back(clickerPeriodMs(c));
        }
        const double ours = median(clicker);
        const double theirs = median(bare);
        std::printf("%6d ms  %11.3f ms %11.3f ms %9.2f%% %12.1f\n", c.intervalMs, ours, theirs,
                    (ours / theirs - 1.0) * 100.0, 1000.0 / ours);
        std::fflush(stdout);
    }

    engine.running.exchange(false);
    platform::signal(platform::Event::quit);
    worker.join();
    platform::closeEvents();
    return 0;
}
