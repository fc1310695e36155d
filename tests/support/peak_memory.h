// How much memory the process held at its peak, on Linux.
#pragma once

#include <malloc.h>

#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>

namespace ravelin::test {

// A line of the process's own status, in megabytes; 0 where there is none.
inline double memoryMb(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, name.size() + 1, name + ':') == 0)
            return std::atof(line.c_str() + name.size() + 1) / 1024;
    return 0;
}

// From here on, memory that is freed stays with the process and serves what is measured next. Else
// the cost of new pages would be counted or not, as the allocator happens to have been used before.
inline void keepFreedMemory() {
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
}

// Counts from what is held when it is made.
class PeakMemory {
  public:
    PeakMemory() {
        malloc_trim(0);  // what was freed before is not to hide what is taken now
        std::ofstream("/proc/self/clear_refs") << "5";
        before_ = memoryMb("VmRSS");
    }
    double megabytes() const { return memoryMb("VmHWM") - before_; }

  private:
    double before_ = 0;
};

}  // namespace ravelin::test
