// What every run prepares in its process before it does anything else.
#pragma once

#include <cstdint>

namespace ravelin {

// Libraries are looked for in the safe default directories only.
void restrictLibrarySearch();

// Removes the environment variables through which something outside the program could redirect or
// instrument the embedded browser. None is set to a value of the program's own.
void removeBrowserVariables();

// Stores the colour (0xRRGGBB) on which the embedded browser paints until it has a page, in this
// process's environment: the browser looks for it there before anything of it can be seen.
void setBrowserGround(std::uint32_t colour);

// Aware of the system's DPI, not of each monitor's.
void markDpiAware();

// COM on this thread, as a single-threaded apartment with OLE1 DDE disabled.
class ComSession {
  public:
    ComSession();
    // Leaves COM unless entering failed; an apartment of another mode that was already there is
    // left as well.
    void leave() const;

  private:
    std::int32_t result_;
};

// Raises the system timer resolution to 1 ms; requestTimerResolution() may be called more often
// than releaseTimerResolution(), the system drops what is left when the process ends.
void requestTimerResolution();
void releaseTimerResolution();

// Keeps the timer resolution when the system would throttle a window in the background. Systems
// that do not know the setting ignore it.
void optOutOfTimerThrottling();

// Calls `save` when the process crashes, then lets the crash take its course.
void installCrashHandler(void (*save)());

}  // namespace ravelin
