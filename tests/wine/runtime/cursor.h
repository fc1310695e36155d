// Mouse pointer shapes of pages.
#pragma once

#include <windows.h>

#include <string_view>

namespace ravelin::browser {

// The system's cursor for a computed CSS cursor value ("pointer", "url(hand.png), grab"); null for
// "none", the arrow for what the system has no shape for.
HCURSOR cursorFor(std::string_view css);

}  // namespace ravelin::browser
