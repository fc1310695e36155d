// Tells the user why there is no window.
#pragma once

#include "app/view_failure.h"

namespace ravelin {

// Shows a message box and waits until the user has answered it, without a message loop on this
// thread: what the engine still answers to a view that was given up must find nobody.
void showViewFailure(const ViewFailure& failure);

}  // namespace ravelin
