// The quit event as Windows knows it, for threads that wait on more than the engine's events.
#pragma once

#include <windows.h>

namespace ravelin::platform {

// Owned by the platform; null outside createEvents() and closeEvents().
HANDLE quitEvent();

}  // namespace ravelin::platform
