// The page's zoom factor, shared by the controller that sets it and the input that scales by it.
#pragma once

namespace ravelin::browser {

struct Zoom {
    double factor = 1.0;
    double toPage(long windowPixels) const { return static_cast<double>(windowPixels) / factor; }
};

}  // namespace ravelin::browser
