// The scanner once more, written for obviousness instead of speed and sharing no code with it:
// every rule as it reads, every search trying start after start.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "input/event_list.h"

namespace naive {

enum Mod { ctrl = 1, alt = 2, shift = 4, win = 8 };

struct Press {
    ravelin::UnifiedEvent event;
    int held = 0;  // sum of Mod
};

using Presses = std::vector<Press>;
using Predicate = std::function<bool(const Press&)>;

struct Found {
    bool matched = false;
    double atSec = 0.0;
};

inline int modOf(std::uint32_t vk) {
    if (vk == 17 || vk == 162 || vk == 163) return ctrl;
    if (vk == 18 || vk == 164 || vk == 165) return alt;
    if (vk == 16 || vk == 160 || vk == 161) return shift;
    if (vk == 91 || vk == 92) return win;
    return 0;
}

inline Presses pressesOf(const ravelin::EventList& events) {
    Presses presses;
    int held = 0;
    for (const auto& event : events) {
        if (event.kind != 3) continue;
        if (event.down != 0) presses.push_back({event, held});
        held = event.down != 0 ? held | modOf(event.vk) : held & ~modOf(event.vk);
    }
    return presses;
}

inline Predicate chord(int held, std::uint32_t vk) {
    return [=](const Press& press) { return press.event.vk == vk && press.held == held; };
}

inline Predicate either(const Predicate& a, const Predicate& b) {
    return [=](const Press& press) { return a(press) || b(press); };
}

inline bool typing(const Press& press) {
    const auto vk = press.event.vk;
    const bool text = vk == 32 || (vk >= 48 && vk <= 57) || (vk >= 65 && vk <= 90) ||
                      (vk >= 96 && vk <= 105) || (vk >= 186 && vk <= 192) ||
                      (vk >= 219 && vk <= 223);
    return text && (press.held == 0 || press.held == shift);
}

inline bool bareWin(const Press& press) {
    return (press.event.vk == 91 || press.event.vk == 92) && (press.held == 0 || press.held == win);
}

inline Found sequence(const Presses& presses, const std::vector<Predicate>& steps) {
    int attempts = 0;
    for (std::size_t i = 0; i < presses.size(); ++i) {
        if (attempts == 500) return {};
        if (!steps[0](presses[i])) continue;
        std::size_t step = 1;
        for (std::size_t j = i + 1; j < presses.size() && step < steps.size(); ++j) {
            if (steps[step](presses[j])) ++step;
        }
        ++attempts;
        if (step == steps.size()) return {true, presses[i].event.time};
    }
    return {};
}

inline Found repeated(const Presses& presses, const Predicate& predicate, std::size_t count,
                      double windowSec) {
    std::vector<double> times;
    for (const Press& press : presses) {
        if (predicate(press)) times.push_back(press.event.time);
    }
    if (times.size() < count) return {};
    for (std::size_t i = 0; i <= times.size() - count; ++i) {
        if (times[i + count - 1] - times[i] <= windowSec) return {true, times[i]};
    }
    return {};
}

struct Burst {
    bool found = false;
    double atSec = 0.0;
    std::size_t endIndex = 0;
};

inline Burst typingBurst(const Presses& presses) {
    std::vector<std::size_t> typed;
    for (std::size_t i = 0; i < presses.size(); ++i) {
        if (typing(presses[i])) typed.push_back(i);
    }
    for (std::size_t i = 0; i + 8 <= typed.size(); ++i) {
        const double first = presses[typed[i]].event.time;
        if (presses[typed[i + 7]].event.time - first <= 5.0) return {true, first, typed[i + 7]};
    }
    return {};
}

inline Found typeAndSend(const Presses& presses) {
    const Burst burst = typingBurst(presses);
    if (!burst.found) return {};
    for (std::size_t i = burst.endIndex + 1; i < presses.size(); ++i) {
        if (presses[i].event.time - burst.atSec > 10.0) return {};
        if (presses[i].event.vk == 13 && presses[i].held == 0) return {true, burst.atSec};
    }
    return {};
}

inline Found systemKeys(const Presses& presses) {
    for (const Press& press : presses) {
        if ((press.held & win) != 0 && modOf(press.event.vk) == 0) return {true, press.event.time};
    }
    return {};
}

// Every scenario by its id, before anything is dropped as redundant.
inline std::map<std::string, Found> detectAll(const Presses& presses) {
    const auto seq = [&](const std::vector<Predicate>& steps) { return sequence(presses, steps); };
    const Predicate enter = chord(0, 13);
    const Predicate approve = either(chord(ctrl | shift, 13), chord(alt, 'Y'));
    const Predicate copy = either(chord(ctrl, 'C'), chord(ctrl, 'X'));
    const Predicate paste = chord(ctrl, 'V');
    const Predicate remove = either(chord(0, 46), chord(0, 8));
    const Predicate menuItem =
        either(either(chord(0, 'I'), chord(0, 'A')), either(chord(0, 'T'), chord(0, 'G')));
    const Predicate screenshot =
        either(chord(0, 44), either(chord(win | shift, 'S'), chord(alt, 44)));

    std::map<std::string, Found> all;
    all["run-command"] = seq({chord(win, 'R'), typing, enter});
    all["admin-approve"] = seq({chord(win, 'R'), approve});
    if (!all["admin-approve"].matched) all["admin-approve"] = seq({bareWin, typing, approve});
    all["power-menu"] = seq({chord(win, 'X'), menuItem});
    all["start-launch"] = seq({bareWin, typing, enter});
    all["copy-paste-send"] = seq({copy, paste, enter});
    all["screenshot-paste"] = seq({screenshot, paste});
    all["select-all-delete"] = seq({chord(ctrl, 'A'), remove});
    all["permanent-delete"] = seq({chord(shift, 46)});
    all["wipe-and-save"] = seq({chord(ctrl, 'A'), either(remove, typing), chord(ctrl, 'S')});
    all["open-address"] = seq({either(chord(ctrl, 'L'), chord(0, 117)), typing, enter});
    all["copy-paste"] = seq({copy, paste});
    all["type-and-send"] = typeAndSend(presses);
    all["close-windows"] = repeated(presses, either(chord(alt, 115), chord(ctrl, 'W')), 2, 30.0);
    all["task-manager"] = seq({either(chord(ctrl | shift, 27), chord(ctrl | alt, 46))});
    all["switch-windows"] = repeated(presses, chord(alt, 9), 3, 10.0);
    all["system-keys"] = systemKeys(presses);
    return all;
}

// What is left of them after redundant ones are dropped: id and time in ascending order of the ids.
inline std::vector<std::pair<std::string, double>> scan(const ravelin::EventList& events) {
    auto all = detectAll(pressesOf(events));
    if (all["copy-paste-send"].matched) all.erase("copy-paste");
    if (all["run-command"].matched || all["start-launch"].matched) all.erase("system-keys");
    std::vector<std::pair<std::string, double>> out;
    for (const auto& [id, found] : all) {
        if (found.matched) out.emplace_back(id, found.atSec);
    }
    return out;
}

}  // namespace naive
