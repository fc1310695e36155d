#include <utility>

#include "app/child_panels.h"
#include "app/engine_run.h"
#include "app/pipe_server.h"
#include "app/process_setup.h"
#include "app/update_run.h"
#include "input/auto_clicker.h"
#include "input/command_pass.h"
#include "input/engine_state.h"
#include "input/fence.h"
#include "input/input_thread.h"
#include "input/key_spammer.h"
#include "input/platform.h"
#include "input/player.h"
#include "persistence/autosave.h"
#include "persistence/session_file.h"

namespace ravelin {

void EngineRun::start() {
    started_ = true;
    platform::createEvents();
    threads_.start({"auto clicker", runAutoClicker});
    threads_.start({"key spammer", runKeySpammer});
    threads_.start({"input", runInputThread});
    threads_.start({"player", runPlayer});
    threads_.start({"autosave", runAutosave});
    threads_.start({"command", runCommandThread});
    threads_.start({"pipe server", runPipeServer});
    threads_.start({"update check", runUpdateCheck});
}

void EngineRun::stop() noexcept {
    if (!std::exchange(started_, false)) return;
    runFenced(saveSession);
    engine.running.exchange(false);
    postQuitToInputThread();
    platform::signal(platform::Event::quit);
    for (const auto* name : {"auto clicker", "key spammer", "input", "player", "command",
                             "pipe server", "autosave", "update check"})
        threads_.join(name);
    joinUpdateWorker();
    platform::closeEvents();
    endAllChildPanels();
    releaseTimerResolution();
}

}  // namespace ravelin
