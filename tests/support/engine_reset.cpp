#include "tests/support/engine_reset.h"

#include "tests/support/engine_defaults.h"
#include "tests/support/simulated_desktop.h"

namespace ravelin::test {

void resetEngine() {
    desktop = SimulatedDesktop();
    restoreEngineDefaults();
    desktop = SimulatedDesktop();
}

}  // namespace ravelin::test
