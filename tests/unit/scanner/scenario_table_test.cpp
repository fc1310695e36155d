#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "scanner/scenarios.h"

namespace MacroScan {
namespace {

struct Row {
    std::string id;
    std::string severity;
    std::string title;
    std::string description;
};

const Row expectedRows[] = {
    {"run-command", "DANGER", "Opens Run and executes",
     "Opens the Windows Run box, types something and presses Enter. This can start programs or run "
     "commands on your PC."},
    {"admin-approve", "DANGER", "Approves admin permission",
     "Tries to run something as administrator and may approve the permission prompt."},
    {"power-menu", "DANGER", "Opens the power menu",
     "Opens the Windows power menu and picks an item such as Terminal or Task Manager."},
    {"start-launch", "DANGER", "Searches and launches",
     "Searches the Start menu and launches whatever it finds."},
    {"copy-paste-send", "DANGER", "Copies, pastes and sends",
     "Copies something, pastes it somewhere else and presses Enter. It could send private text "
     "such as passwords or messages."},
    {"screenshot-paste", "DANGER", "Screenshots and pastes",
     "Takes a screenshot and pastes it somewhere. It could share what is on your screen."},
    {"select-all-delete", "DANGER", "Selects all and deletes",
     "Selects everything and deletes it."},
    {"permanent-delete", "DANGER", "Permanently deletes",
     "Permanently deletes the selection and skips the Recycle Bin."},
    {"wipe-and-save", "DANGER", "Replaces and overwrites a file",
     "Replaces a document's contents and saves over it."},
    {"open-address", "CAUTION", "Opens a web address", "Types a web address and opens it."},
    {"copy-paste", "CAUTION", "Copies and pastes",
     "Copies something and pastes it into another place."},
    {"type-and-send", "CAUTION", "Types and presses Enter",
     "Types text and presses Enter. It could send a message or submit a form."},
    {"close-windows", "CAUTION", "Closes windows",
     "Closes windows or tabs. You could lose unsaved work."},
    {"task-manager", "CAUTION", "Opens Task Manager", "Opens Task Manager or the security screen."},
    {"switch-windows", "CAUTION", "Switches windows",
     "Switches between your open windows, so its keys and clicks may land somewhere unexpected."},
    {"system-keys", "CAUTION", "Uses Windows shortcuts", "Uses Windows system shortcuts."},
};

TEST(ScenarioTable, HoldsItsRowsWithTheirTextsInOrder) {
    ASSERT_EQ(Scenarios().size(), std::size(expectedRows));
    for (std::size_t i = 0; i < std::size(expectedRows); ++i) {
        const Scenario& scenario = Scenarios()[i];
        EXPECT_EQ(scenario.id, expectedRows[i].id);
        EXPECT_EQ(scenario.severity, expectedRows[i].severity);
        EXPECT_EQ(scenario.title, expectedRows[i].title);
        EXPECT_EQ(scenario.description, expectedRows[i].description);
    }
}

TEST(ScenarioTable, IsTheSameObjectEveryTime) {
    EXPECT_EQ(&Scenarios(), &Scenarios());
}

TEST(ScenarioTable, NoDetectorMatchesWithoutPresses) {
    for (const Scenario& scenario : Scenarios()) {
        const SeqResult result = scenario.detect({});
        EXPECT_FALSE(result.matched) << scenario.id;
        EXPECT_EQ(result.atSec, 0.0) << scenario.id;
    }
}

}  // namespace
}  // namespace MacroScan
