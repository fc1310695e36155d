// How many pixels of the screen one of the page's takes.
#pragma once

#include <windows.h>

namespace ravelin::browser {

// The scale of the window's monitor times the size of text, as the engine hands both to the page.
// The size of text is the environment variable RAVELIN_TEST_TEXT_SIZE, in percent; the window's own
// DPI knows nothing of it.
double displayScale(HWND window);

// The page's scale, shared by the controller that sets it and the input that is divided by it.
struct PageScale {
    double zoom = 1.0;     // as the user or the host enlarged the page
    double display = 1.0;  // of the window's place
    double ratio() const { return zoom * display; }
    double toPage(long pixels) const { return static_cast<double>(pixels) / ratio(); }
};

}  // namespace ravelin::browser
