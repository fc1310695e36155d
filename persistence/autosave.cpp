#include "persistence/autosave.h"

#include <cstdint>

#include "input/engine_state.h"
#include "input/fence.h"
#include "input/platform.h"
#include "persistence/session_file.h"

namespace ravelin {
namespace {

constexpr std::uint32_t stepMs = 100;
constexpr int stepsBetweenSaves = 50;

// False when the program ends before the time is over.
bool waitForNextSave() {
    for (int step = 0; step < stepsBetweenSaves; ++step) {
        if (!engine.running.load()) return false;
        platform::sleepMs(stepMs);
    }
    return engine.running.load();
}

}  // namespace

void runAutosave() {
    while (waitForNextSave())
        runFenced(saveSession);
}

}  // namespace ravelin
