#include "key_script.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <map>
#include <stdexcept>

#include "scanner/scan.h"
#include "support/text.h"

namespace scanner_test {
namespace {

using ravelin::EventList;

std::uint32_t keyCode(const std::string& name, Side side) {
    static const std::map<std::string, std::array<std::uint32_t, 3>> modifiers = {
        {"Ctrl", {17, 162, 163}},
        {"Alt", {18, 164, 165}},
        {"Shift", {16, 160, 161}},
        {"Win", {91, 91, 92}},
    };
    static const std::map<std::string, std::uint32_t> named = {
        {"Backspace", 8}, {"Tab", 9},     {"Enter", 13}, {"Esc", 27}, {"Space", 32}, {"Left", 37},
        {"PrtSc", 44},    {"Delete", 46}, {"F4", 115},   {"F5", 116}, {"F6", 117},
    };
    if (const auto it = modifiers.find(name); it != modifiers.end()) {
        return it->second[static_cast<std::size_t>(side)];
    }
    if (const auto it = named.find(name); it != named.end()) return it->second;
    if (name.size() != 1) throw std::invalid_argument("no key called " + name);
    const char c = name[0];
    return static_cast<std::uint32_t>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
}

}  // namespace

ravelin::UnifiedEvent keyEvent(double time, std::uint32_t vk, bool down) {
    ravelin::UnifiedEvent event;
    event.kind = static_cast<std::int32_t>(ravelin::EventKind::Key);
    event.time = time;
    event.vk = vk;
    event.down = down ? 1 : 0;
    return event;
}

EventList script(std::string_view text, Side side) {
    EventList events;
    double time = -1.0;
    for (const std::string& chord : ravelin::splitList(text, ' ')) {
        const std::vector<std::string> parts = ravelin::splitList(chord, '@');
        time = parts.size() > 1 ? std::stod(parts[1]) : time + 1.0;
        if (parts[0][0] == '>' || parts[0][0] == '<') {
            events.append(keyEvent(time, keyCode(parts[0].substr(1), side), parts[0][0] == '>'));
            continue;
        }
        const std::vector<std::string> names = ravelin::splitList(parts.at(0), '+');
        for (const std::string& name : names) {
            events.append(keyEvent(time, keyCode(name, side), true));
        }
        for (auto name = names.rbegin(); name != names.rend(); ++name) {
            events.append(keyEvent(time, keyCode(*name, side), false));
        }
    }
    return events;
}

std::string findings(const EventList& events) {
    std::string out;
    for (const MacroScan::Match& match : MacroScan::Scan(events).matches) {
        if (!out.empty()) out += ' ';
        std::array<char, 32> digits{};
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), match.atSec).ptr;
        out.append(match.id).append("@").append(digits.data(), end);
    }
    return out;
}

void expectFindings(std::string_view text, std::string_view expected) {
    for (const Side side : allSides) {
        EXPECT_EQ(findings(script(text, side)), expected)
            << text << " on side " << static_cast<int>(side);
    }
}

}  // namespace scanner_test
