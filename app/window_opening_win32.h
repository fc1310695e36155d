// A window that is not seen before it is ready: in its shape and place, with its page painted.
//
// The view library shows its window with the first size that it is given, with a caption, at the
// system's default place and without a page, and puts it into the foreground.
#pragma once

#include <windows.h>

#include "support/win32_handles.h"

namespace ravelin {

// One at a time in a process, on the window's thread.
class WindowOpening {
  public:
    enum class Activation { allowed, refused };

    // Cloaks the window. With `refused` it is not activated either until `allowActivation`, which
    // must come before anybody else subclasses it. A null window is ignored.
    WindowOpening(HWND window, Activation activation);
    WindowOpening(const WindowOpening&) = delete;
    WindowOpening& operator=(const WindowOpening&) = delete;
    // Lets the window be seen, if it is not yet.
    ~WindowOpening();

    void allowActivation();

    // Lets the window be seen; nothing happens the second time.
    void reveal();
    // The same after the longest time that a page may take, in the message loop: a page that never
    // tells that it is painted is better seen than not.
    void revealSoon();

  private:
    HWND window_;
    bool cloaked_ = false;
    HookHandle hook_;
    ThreadTimer timer_;
};

}  // namespace ravelin
