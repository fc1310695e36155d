#include "display_scale.h"

#include <cstdlib>

#include "wide_text.h"

namespace ravelin::browser {
namespace {

// What the system's own slider offers.
constexpr int smallestText = 100;
constexpr int largestText = 225;

double textScale() {
    const int percent = std::atoi(environmentText(L"RAVELIN_TEST_TEXT_SIZE").c_str());
    return percent < smallestText || percent > largestText ? 1.0 : percent / 100.0;
}

}  // namespace

double displayScale(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    return (dpi == 0 ? 1.0 : static_cast<double>(dpi) / USER_DEFAULT_SCREEN_DPI) * textScale();
}

}  // namespace ravelin::browser
