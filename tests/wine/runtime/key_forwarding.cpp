#include "key_forwarding.h"

#include "key_events.h"
#include "wide_text.h"

namespace ravelin::browser {
namespace {

// Without a native key code: with one the browser would take its own keys, F5 or Ctrl+T, whatever
// the host wants.
Json protocolEvent(const char* type, const KeyEvent& event, bool system) {
    return {{"type", type},
            {"modifiers", keyModifiers(0)},
            {"windowsVirtualKeyCode", event.virtualKey},
            {"code", event.code},
            {"key", event.key},
            {"location", event.location},
            {"isKeypad", event.location == 3},
            {"autoRepeat", event.repeated},
            {"isSystemKey", system}};
}

}  // namespace

std::optional<LRESULT> KeyForwarding::handle(UINT message, WPARAM wide, LPARAM lng) {
    switch (message) {
        case WM_KEYDOWN:
            keyDown(wide, lng, false);
            return 0;
        case WM_KEYUP:
            keyUp(wide, lng, false);
            return 0;
        case WM_CHAR:
            character(static_cast<wchar_t>(wide));
            return 0;
        // The page sees keys with Alt, and the system still opens menus and closes windows by them.
        case WM_SYSKEYDOWN:
            keyDown(wide, lng, true);
            return std::nullopt;
        case WM_SYSKEYUP:
            keyUp(wide, lng, true);
            return std::nullopt;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        default:
            return std::nullopt;
    }
}

void KeyForwarding::keyDown(WPARAM wide, LPARAM lng, bool system) {
    const KeyEvent event = readKeyMessage(wide, lng);
    if (onAccelerator && onAccelerator(event.virtualKey, keyModifiers(0))) return;
    input_.push(InputKind::other, "Input.dispatchKeyEvent",
                protocolEvent("rawKeyDown", event, system));
}

void KeyForwarding::keyUp(WPARAM wide, LPARAM lng, bool system) {
    input_.push(InputKind::other, "Input.dispatchKeyEvent",
                protocolEvent("keyUp", readKeyMessage(wide, lng), system));
}

void KeyForwarding::character(wchar_t unit) {
    if (IS_HIGH_SURROGATE(unit)) {
        firstHalf_ = unit;
        return;
    }
    std::wstring text(1, unit);
    if (IS_LOW_SURROGATE(unit)) text.insert(text.begin(), firstHalf_);
    firstHalf_ = 0;
    // Ctrl+Enter comes as a line feed; other control characters give no text.
    if (unit == L'\n') text = L"\r";
    if (text[0] < L' ' && text[0] != L'\r') return;
    const std::string utf8 = toUtf8(text);
    input_.push(InputKind::other, "Input.dispatchKeyEvent",
                {{"type", "char"},
                 {"modifiers", keyModifiers(0)},
                 {"text", utf8},
                 {"unmodifiedText", utf8},
                 {"key", text == L"\r" ? "Enter" : utf8}});
}

}  // namespace ravelin::browser
