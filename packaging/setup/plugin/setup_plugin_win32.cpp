// What the setup program cannot do by its own script, as functions that it calls with texts and
// that answer with one.
//
//   startByShell PROGRAM       1 when the desktop's shell has started it
//   isNewer VERSION OTHER      1 when the first is the newer one
//   removeFolder FOLDER        1 when nothing of it is left
#include <windows.h>

#include <string>

#include "packaging/setup/plugin/remove_folder_win32.h"
#include "packaging/setup/plugin/shell_start_win32.h"
#include "support/utf.h"
#include "updater/version.h"

namespace {

// The script's stack: an element is allocated by whoever pushes it, with room for a text of the
// script's longest length, and freed by whoever pops it.
struct Element {
    Element* next;
    wchar_t text[1];
};

class Stack {
  public:
    Stack(Element** top, int textLength) : top_(*top), length_(static_cast<SIZE_T>(textLength)) {}

    std::wstring pop() {
        if (top_ == nullptr) return {};
        Element* const element = top_;
        std::wstring text = element->text;
        top_ = element->next;
        GlobalFree(element);
        return text;
    }

    void push(bool answer) {
        auto* const element =
            static_cast<Element*>(GlobalAlloc(GPTR, sizeof(Element) + length_ * sizeof(wchar_t)));
        if (element == nullptr) return;
        element->text[0] = answer ? L'1' : L'0';
        element->next = top_;
        top_ = element;
    }

  private:
    Element*& top_;
    SIZE_T length_;
};

// Nothing may throw into the script's interpreter.
template <class Action>
void answer(int textLength, Element** top, Action action) noexcept {
    Stack stack(top, textLength);
    bool result = false;
    try {
        result = action(stack);
    } catch (...) {
        result = false;
    }
    stack.push(result);
}

}  // namespace

// The interpreter gives its window, its texts' length, its variables, the stack and more.
#define RAVELIN_EXPORT extern "C" __declspec(dllexport) void

RAVELIN_EXPORT startByShell(HWND, int textLength, wchar_t*, Element** top, void*) {
    answer(textLength, top, [](Stack& stack) { return ravelin::startByShell(stack.pop()); });
}

RAVELIN_EXPORT isNewer(HWND, int textLength, wchar_t*, Element** top, void*) {
    answer(textLength, top, [](Stack& stack) {
        const ravelin::Version version = ravelin::ParseVersion(ravelin::narrow(stack.pop()));
        const ravelin::Version other = ravelin::ParseVersion(ravelin::narrow(stack.pop()));
        return version.valid && other.valid && ravelin::isNewer(version, other);
    });
}

RAVELIN_EXPORT removeFolder(HWND, int textLength, wchar_t*, Element** top, void*) {
    answer(textLength, top, [](Stack& stack) { return ravelin::removeFolder(stack.pop()); });
}
