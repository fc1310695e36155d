#include "input/command_pass.h"

#include "input/auto_clicker.h"
#include "input/capture.h"
#include "input/engine_state.h"
#include "input/fence.h"
#include "input/key_spammer.h"
#include "input/player.h"
#include "input/recorder.h"
#include "input/unified_event.h"

namespace ravelin {

void runCommandPass() {
    const bool wasClicking = engine.autoClicking.load();
    const bool wasSpamming = engine.keySpamming.load();

    // Each by itself: when memory runs out while a recording is stitched, the stops that were
    // requested with it are still carried out.
    for (auto* step : {completeCapture, applyRecorderRequests, applyPlayerRequests,
                       applyClickerRequests, applyKeySpamRequests})
        runFenced(step);

    runFenced([&] {
        if (const bool clicking = engine.autoClicking.load(); clicking != wasClicking)
            recordTool(toolAutoClicker, clicking);
        if (const bool spamming = engine.keySpamming.load(); spamming != wasSpamming)
            recordTool(toolKeySpammer, spamming);
    });
}

void runCommandThread() {
    platform::enterWorkerThread();
    while (engine.running.load()) {
        runCommandPass();
        platform::waitForEventOrQuit(platform::Event::command, platform::forever);
    }
}

}  // namespace ravelin
