// How late the player sends each event of a macro, beside a bare loop that waits and sends the same
// events, in turns in the same run. A keyboard hook of this program takes the time of each and lets
// none through; the earliest event of a pass is the zero of its clock.
#include <windows.h>
// Wants windows.h first.
#include <timeapi.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

#include "input/engine_state.h"
#include "input/platform.h"
#include "input/player.h"
#include "input/requests.h"
#include "persistence/profiles.h"
#include "support/win32_handles.h"

namespace {

using namespace ravelin;

constexpr WORD unassignedKey = 0xE8;  // no program does anything with it
constexpr int eventCount = 400;
constexpr int turns = 5;

std::vector<std::int64_t> arrivals(eventCount);
std::atomic<int> arrived{0};

LRESULT CALLBACK takeTime(int code, WPARAM message, LPARAM data) {
    const auto& event = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
    // Not by the key: one that has no scan code arrives without a virtual key under Wine.
    if (code < 0 || (event.flags & LLKHF_INJECTED) == 0)
        return CallNextHookEx(nullptr, code, message, data);
    const int index = arrived.load();
    if (index < eventCount) arrivals[static_cast<std::size_t>(index)] = platform::counter();
    arrived = index + 1;
    return 1;
}

void watch(std::atomic<DWORD>& threadId) {
    const HookHandle hook(
        SetWindowsHookExW(WH_KEYBOARD_LL, takeTime, GetModuleHandleW(nullptr), 0));
    MSG message{};
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
    threadId = GetCurrentThreadId();
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
}

// Presses and releases 1 to 9 ms apart, always the same ones.
EventList makeMacro() {
    std::minstd_rand random(7);  // NOLINT(cert-msc51-cpp): every run plays the same macro
    std::uniform_real_distribution<double> gap(0.001, 0.009);
    EventList macro;
    double time = 0.05;
    for (int i = 0; i < eventCount; ++i) {
        UnifiedEvent event;
        event.kind = static_cast<std::int32_t>(EventKind::Key);
        event.time = time;
        event.vk = unassignedKey;
        event.down = i % 2 == 0 ? 1 : 0;
        macro.append(event);
        time += gap(random);
    }
    return macro;
}

void awaitAll() {
    while (arrived.load() < eventCount)
        Sleep(5);
}

void playWithPlayer() {
    arrived = 0;
    engine.playing.exchange(true);
    platform::signal(platform::Event::playerWake);
    awaitAll();
    while (engine.playing.load())
        Sleep(1);
}

// One wait and one SendInput an event.
void playBare(const EventList& macro) {
    arrived = 0;
    const KernelHandle stop(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const double frequency = static_cast<double>(platform::counterFrequency());
    const auto began = platform::counter();
    for (const UnifiedEvent& event : macro) {
        const double now = static_cast<double>(platform::counter() - began) / frequency;
        const double left = (event.time - now) * 1000.0;
        if (left > 0) WaitForSingleObject(stop.get(), static_cast<DWORD>(left + 0.999));
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = unassignedKey;
        input.ki.dwFlags = event.down != 0 ? 0U : KEYEVENTF_KEYUP;
        SendInput(1, &input, sizeof input);
    }
    awaitAll();
}

// Each event's lateness in microseconds.
void collect(const EventList& macro, std::vector<double>& latenesses) {
    const double frequency = static_cast<double>(platform::counterFrequency());
    std::vector<double> offsets;
    for (std::size_t i = 0; i < macro.size(); ++i)
        offsets.push_back(static_cast<double>(arrivals[i]) / frequency - macro[i].time);
    const double zero = *std::min_element(offsets.begin(), offsets.end());
    for (const double offset : offsets)
        latenesses.push_back((offset - zero) * 1e6);
}

void print(const char* who, std::vector<double> latenesses) {
    std::sort(latenesses.begin(), latenesses.end());
    const auto at = [&](double share) {
        return latenesses[static_cast<std::size_t>(share *
                                                   static_cast<double>(latenesses.size() - 1))];
    };
    std::printf("%-10s %12.0f us %12.0f us %12.0f us\n", who, at(0.5), at(0.99), at(1.0));
}

}  // namespace

int main() {
    const TimerPeriod period(timeBeginPeriod(1) == TIMERR_NOERROR ? 1U : 0U);
    engine.counterFrequency = platform::counterFrequency();
    platform::createEvents();
    addDefaultProfile();
    const EventList macro = makeMacro();
    {
        const std::lock_guard lock(profileMutex);
        lockedCurrentProfile()->events = macro;
    }
    std::atomic<DWORD> hookThreadId{0};
    std::thread hooks(watch, std::ref(hookThreadId));
    while (hookThreadId.load() == 0)
        Sleep(1);
    std::thread player(runPlayer);

    std::vector<double> ours;
    std::vector<double> bare;
    for (int turn = 0; turn < turns; ++turn) {
        playBare(macro);
        collect(macro, bare);
        playWithPlayer();
        collect(macro, ours);
    }
    std::printf("%-10s %15s %15s %15s\n", "lateness", "median", "p99", "latest");
    print("bare loop", bare);
    print("player", ours);

    engine.running.exchange(false);
    platform::signal(platform::Event::quit);
    player.join();
    PostThreadMessageW(hookThreadId.load(), WM_QUIT, 0, 0);
    hooks.join();
    platform::closeEvents();
    return 0;
}
