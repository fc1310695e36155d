#include "scanner/scenarios.h"

#include "scanner/detectors.h"

namespace MacroScan {

const std::vector<Scenario>& Scenarios() {
    static const std::vector<Scenario> table = {
        {"run-command", severityDanger, "Opens Run and executes",
         "Opens the Windows Run box, types something and presses Enter. This can start programs or "
         "run commands on your PC.",
         runCommand()},
        {"admin-approve", severityDanger, "Approves admin permission",
         "Tries to run something as administrator and may approve the permission prompt.",
         adminApprove()},
        {"power-menu", severityDanger, "Opens the power menu",
         "Opens the Windows power menu and picks an item such as Terminal or Task Manager.",
         powerMenu()},
        {"start-launch", severityDanger, "Searches and launches",
         "Searches the Start menu and launches whatever it finds.", startLaunch()},
        {"copy-paste-send", severityDanger, "Copies, pastes and sends",
         "Copies something, pastes it somewhere else and presses Enter. It could send private text "
         "such as passwords or messages.",
         copyPasteSend()},
        {"screenshot-paste", severityDanger, "Screenshots and pastes",
         "Takes a screenshot and pastes it somewhere. It could share what is on your screen.",
         screenshotPaste()},
        {"select-all-delete", severityDanger, "Selects all and deletes",
         "Selects everything and deletes it.", selectAllDelete()},
        {"permanent-delete", severityDanger, "Permanently deletes",
         "Permanently deletes the selection and skips the Recycle Bin.", permanentDelete()},
        {"wipe-and-save", severityDanger, "Replaces and overwrites a file",
         "Replaces a document's contents and saves over it.", wipeAndSave()},
        {"open-address", severityCaution, "Opens a web address",
         "Types a web address and opens it.", openAddress()},
        {"copy-paste", severityCaution, "Copies and pastes",
         "Copies something and pastes it into another place.", copyPaste()},
        {"type-and-send", severityCaution, "Types and presses Enter",
         "Types text and presses Enter. It could send a message or submit a form.", typeAndSend()},
        {"close-windows", severityCaution, "Closes windows",
         "Closes windows or tabs. You could lose unsaved work.", closeWindows()},
        {"task-manager", severityCaution, "Opens Task Manager",
         "Opens Task Manager or the security screen.", taskManager()},
        {"switch-windows", severityCaution, "Switches windows",
         "Switches between your open windows, so its keys and clicks may land somewhere "
         "unexpected.",
         switchWindows()},
        {"system-keys", severityCaution, "Uses Windows shortcuts", "Uses Windows system shortcuts.",
         systemKeys()},
    };
    return table;
}

}  // namespace MacroScan
