#include "key_events.h"

#include <array>
#include <string_view>
#include <utility>

#include "wide_text.h"

namespace ravelin::browser {
namespace {

constexpr int altBit = 1;
constexpr int controlBit = 2;
constexpr int metaBit = 4;
constexpr int shiftBit = 8;

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

// Physical keys by scan code, as the UI Events code values name them.
constexpr std::array<std::string_view, 0x59> codes = {"",
                                                      "Escape",
                                                      "Digit1",
                                                      "Digit2",
                                                      "Digit3",
                                                      "Digit4",
                                                      "Digit5",
                                                      "Digit6",
                                                      "Digit7",
                                                      "Digit8",
                                                      "Digit9",
                                                      "Digit0",
                                                      "Minus",
                                                      "Equal",
                                                      "Backspace",
                                                      "Tab",
                                                      "KeyQ",
                                                      "KeyW",
                                                      "KeyE",
                                                      "KeyR",
                                                      "KeyT",
                                                      "KeyY",
                                                      "KeyU",
                                                      "KeyI",
                                                      "KeyO",
                                                      "KeyP",
                                                      "BracketLeft",
                                                      "BracketRight",
                                                      "Enter",
                                                      "ControlLeft",
                                                      "KeyA",
                                                      "KeyS",
                                                      "KeyD",
                                                      "KeyF",
                                                      "KeyG",
                                                      "KeyH",
                                                      "KeyJ",
                                                      "KeyK",
                                                      "KeyL",
                                                      "Semicolon",
                                                      "Quote",
                                                      "Backquote",
                                                      "ShiftLeft",
                                                      "Backslash",
                                                      "KeyZ",
                                                      "KeyX",
                                                      "KeyC",
                                                      "KeyV",
                                                      "KeyB",
                                                      "KeyN",
                                                      "KeyM",
                                                      "Comma",
                                                      "Period",
                                                      "Slash",
                                                      "ShiftRight",
                                                      "NumpadMultiply",
                                                      "AltLeft",
                                                      "Space",
                                                      "CapsLock",
                                                      "F1",
                                                      "F2",
                                                      "F3",
                                                      "F4",
                                                      "F5",
                                                      "F6",
                                                      "F7",
                                                      "F8",
                                                      "F9",
                                                      "F10",
                                                      "Pause",
                                                      "ScrollLock",
                                                      "Numpad7",
                                                      "Numpad8",
                                                      "Numpad9",
                                                      "NumpadSubtract",
                                                      "Numpad4",
                                                      "Numpad5",
                                                      "Numpad6",
                                                      "NumpadAdd",
                                                      "Numpad1",
                                                      "Numpad2",
                                                      "Numpad3",
                                                      "Numpad0",
                                                      "NumpadDecimal",
                                                      "",
                                                      "",
                                                      "IntlBackslash",
                                                      "F11",
                                                      "F12"};

constexpr std::array<std::pair<int, std::string_view>, 17> extendedCodes = {
    {{0x1C, "NumpadEnter"},
     {0x1D, "ControlRight"},
     {0x35, "NumpadDivide"},
     {0x37, "PrintScreen"},
     {0x38, "AltRight"},
     {0x45, "NumLock"},
     {0x47, "Home"},
     {0x48, "ArrowUp"},
     {0x49, "PageUp"},
     {0x4B, "ArrowLeft"},
     {0x4D, "ArrowRight"},
     {0x4F, "End"},
     {0x50, "ArrowDown"},
     {0x51, "PageDown"},
     {0x52, "Insert"},
     {0x53, "Delete"},
     {0x5D, "ContextMenu"}}};

// Keys that mean the same whatever else is held.
constexpr std::array<std::pair<int, std::string_view>, 29> namedKeys = {
    {{VK_BACK, "Backspace"},   {VK_TAB, "Tab"},           {VK_RETURN, "Enter"},
     {VK_SHIFT, "Shift"},      {VK_CONTROL, "Control"},   {VK_MENU, "Alt"},
     {VK_PAUSE, "Pause"},      {VK_CAPITAL, "CapsLock"},  {VK_ESCAPE, "Escape"},
     {VK_PRIOR, "PageUp"},     {VK_NEXT, "PageDown"},     {VK_END, "End"},
     {VK_HOME, "Home"},        {VK_LEFT, "ArrowLeft"},    {VK_UP, "ArrowUp"},
     {VK_RIGHT, "ArrowRight"}, {VK_DOWN, "ArrowDown"},    {VK_SNAPSHOT, "PrintScreen"},
     {VK_INSERT, "Insert"},    {VK_DELETE, "Delete"},     {VK_CLEAR, "Clear"},
     {VK_LWIN, "Meta"},        {VK_RWIN, "Meta"},         {VK_APPS, "ContextMenu"},
     {VK_NUMLOCK, "NumLock"},  {VK_SCROLL, "ScrollLock"}, {VK_LSHIFT, "Shift"},
     {VK_RSHIFT, "Shift"},     {VK_CANCEL, "Cancel"}}};

template <std::size_t size>
std::string lookUp(const std::array<std::pair<int, std::string_view>, size>& table, int key) {
    for (const auto& [known, name] : table) {
        if (known == key) return std::string(name);
    }
    return {};
}

std::string codeOf(int scan, bool extended) {
    if (extended) {
        if (scan == 0x5B) return "MetaLeft";
        if (scan == 0x5C) return "MetaRight";
        return lookUp(extendedCodes, scan);
    }
    return scan < static_cast<int>(codes.size())
               ? std::string(codes[static_cast<std::size_t>(scan)])
               : std::string();
}

// The character that the key gives with Shift and Caps Lock as they are, Ctrl and Alt left out:
// a page sees "c" for Ctrl+C.
std::string characterOf(UINT virtualKey, UINT scan) {
    std::array<BYTE, 256> state{};
    GetKeyboardState(state.data());
    if (!(isDown(VK_CONTROL) && isDown(VK_MENU))) {
        for (int key : {VK_CONTROL, VK_LCONTROL, VK_RCONTROL, VK_MENU, VK_LMENU, VK_RMENU}) {
            state[static_cast<std::size_t>(key)] = 0;
        }
    }
    constexpr UINT leaveDeadKeys = 4;
    wchar_t text[8] = L"";
    const int length = ToUnicode(virtualKey, scan, state.data(), text, 8, leaveDeadKeys);
    if (length < 0) return "Dead";
    if (length == 0 || text[0] < L' ') return {};
    return toUtf8({text, static_cast<std::size_t>(length)});
}

std::string keyOf(int virtualKey, int scan) {
    std::string name = lookUp(namedKeys, virtualKey);
    if (!name.empty()) return name;
    if (virtualKey >= VK_F1 && virtualKey <= VK_F24) {
        return std::to_string(virtualKey - VK_F1 + 1).insert(0, 1, 'F');
    }
    name = characterOf(static_cast<UINT>(virtualKey), static_cast<UINT>(scan));
    return name.empty() ? "Unidentified" : name;
}

int locationOf(const std::string& code) {
    const auto endsWith = [&code](std::string_view tail) {
        return code.size() > tail.size() &&
               code.compare(code.size() - tail.size(), tail.size(), tail) == 0;
    };
    if (code.compare(0, 6, "Numpad") == 0) return 3;
    const bool paired = code.compare(0, 5, "Shift") == 0 || code.compare(0, 7, "Control") == 0 ||
                        code.compare(0, 3, "Alt") == 0 || code.compare(0, 4, "Meta") == 0;
    if (!paired) return 0;
    return endsWith("Left") ? 1 : 2;
}

}  // namespace

int keyModifiers(WPARAM mouseKeys) {
    int bits = 0;
    if (isDown(VK_MENU)) bits |= altBit;
    if (isDown(VK_CONTROL) || (mouseKeys & MK_CONTROL) != 0) bits |= controlBit;
    if (isDown(VK_LWIN) || isDown(VK_RWIN)) bits |= metaBit;
    if (isDown(VK_SHIFT) || (mouseKeys & MK_SHIFT) != 0) bits |= shiftBit;
    return bits;
}

KeyEvent readKeyMessage(WPARAM wide, LPARAM lng) {
    const int flags = HIWORD(lng);
    const int scan = flags & 0xFF;
    KeyEvent event;
    event.virtualKey = static_cast<int>(wide);
    event.code = codeOf(scan, (flags & KF_EXTENDED) != 0);
    event.key = keyOf(event.virtualKey, scan);
    event.location = locationOf(event.code);
    event.repeated = (flags & KF_REPEAT) != 0 && (flags & KF_UP) == 0;
    return event;
}

}  // namespace ravelin::browser
