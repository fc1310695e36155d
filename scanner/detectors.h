// The detectors of the scenario table, each named after the scenario it finds.
//
// Work: no detector looks at a press more than twice, so its cost grows with the number of presses
// alone, whatever they are and however often a pattern begins without being completed.
#pragma once

#include "scanner/scenarios.h"

namespace MacroScan {

Detector runCommand();
Detector adminApprove();
Detector powerMenu();
Detector startLaunch();
Detector copyPasteSend();
Detector screenshotPaste();
Detector selectAllDelete();
Detector permanentDelete();
Detector wipeAndSave();
Detector openAddress();
Detector copyPaste();
Detector typeAndSend();
Detector closeWindows();
Detector taskManager();
Detector switchWindows();
Detector systemKeys();

}  // namespace MacroScan
