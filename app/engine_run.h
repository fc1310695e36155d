// The engine in motion: its events and threads, from the end of the start-up to the shut-down.
#pragma once

#include "app/engine_threads.h"

namespace ravelin {

// Stops what it started when it goes, whatever ended the run: threads left behind would keep the
// process and its hooks alive without a window.
class EngineRun {
  public:
    EngineRun() = default;
    EngineRun(const EngineRun&) = delete;
    EngineRun& operator=(const EngineRun&) = delete;
    ~EngineRun() { stop(); }

    // Creates the events and starts the threads. Throws std::system_error when there is no thread
    // to be had.
    void start();
    // Saves the session, ends the threads and the panels and gives the timer resolution back, in
    // the order of the shut-down. Does nothing unless started, and nothing the second time.
    void stop() noexcept;

  private:
    ThreadGroup threads_;
    bool started_ = false;
};

}  // namespace ravelin
