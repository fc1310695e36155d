#include "app/start_up_check.h"

#include "app/script_sink.h"
#include "app/update_notices.h"
#include "input/engine_state.h"
#include "input/fence.h"
#include "input/platform.h"

namespace ravelin {

namespace {

constexpr int waitSteps = 50;
constexpr std::uint32_t stepMs = 100;

}  // namespace

void checkAfterStart(const std::function<UpdateCheckResult()>& check) {
    for (int step = 0; step < waitSteps && engine.running; ++step)
        platform::sleepMs(stepMs);
    if (!engine.running) return;
    runFenced([&check] {
        const UpdateCheckResult result = check();
        if (result.available) runPageScript(updateAvailableScript(result));
    });
}

}  // namespace ravelin
