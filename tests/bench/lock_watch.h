// How long a mutex is held, told from inside its lock and unlock, so that neither other programs
// nor the order in which threads get it blur the figure.
#pragma once

#include <mutex>

namespace ravelin::bench {

// Watches one mutex from now on; null watches none.
void watchLock(std::mutex* mutex);

struct LongestHold {
    double cpuUs = 0.0;   // the holder's own processor time: what an idle machine would show
    double wallUs = 0.0;  // with whatever else the machine did meanwhile
};

// Since the mutex is watched. Clock calls included, about a microsecond.
LongestHold longestHold();

}  // namespace ravelin::bench
