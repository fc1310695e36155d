#include "scanner/scan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "key_script.h"
#include "scanner/report.h"

namespace MacroScan {
namespace {

using scanner_test::expectFindings;
using scanner_test::script;

std::string report(const std::string& text) {
    return ReportJson(Scan(script(text)));
}

TEST(Scan, FindsNothingInAnEmptyMacro) {
    EXPECT_EQ(report(""), R"({"level":"none","matches":[]})");
}

TEST(Scan, FindsNothingInAMacroWithoutKeys) {
    ravelin::EventList events;
    for (const int kind : {0, 1, 2, 4, 5, 77}) {
        ravelin::UnifiedEvent event;
        event.kind = kind;
        event.vk = 1;
        event.down = 1;
        events.append(event);
    }
    const ScanResult result = Scan(events);
    EXPECT_EQ(result.level, "none");
    EXPECT_TRUE(result.matches.empty());
}

TEST(Scan, ReportsTheRunBoxWithTheStartSearchThatItBeginsWith) {
    EXPECT_EQ(report(">Win@2 >R@2.1 <R@2.2 <Win@2.3 a@3 b@3.1 c@3.2 Enter@4"),
              R"({"level":"danger","matches":[)"
              R"({"id":"start-launch","severity":"DANGER","atSec":2},)"
              R"({"id":"run-command","severity":"DANGER","atSec":2.1}]})");
}

TEST(Scan, CopiesTheTextsOfTheScenario) {
    const ScanResult result = Scan(script("Shift+Delete@7.5"));
    ASSERT_EQ(result.matches.size(), 1u);
    EXPECT_EQ(result.matches[0].id, "permanent-delete");
    EXPECT_EQ(result.matches[0].severity, "DANGER");
    EXPECT_EQ(result.matches[0].title, "Permanently deletes");
    EXPECT_EQ(result.matches[0].description,
              "Permanently deletes the selection and skips the Recycle Bin.");
    EXPECT_EQ(result.matches[0].atSec, 7.5);
}

TEST(Scan, RatesByTheWorstFinding) {
    EXPECT_EQ(Scan(script("a")).level, "none");
    EXPECT_EQ(Scan(script("Ctrl+C Ctrl+V")).level, "caution");
    EXPECT_EQ(Scan(script("Ctrl+C Ctrl+V Enter")).level, "danger");
    EXPECT_EQ(Scan(script("Win+E Shift+Delete")).level, "danger");
}

TEST(Scan, CopyPasteSendMakesCopyPasteRedundant) {
    expectFindings("Ctrl+C Ctrl+V Enter", "copy-paste-send@0");
    expectFindings("Ctrl+C Ctrl+V", "copy-paste@0");
}

TEST(Scan, RunCommandAloneMakesSystemKeysRedundant) {
    // Win goes down while Ctrl is held, so no bare Win begins a Start search.
    expectFindings(">Ctrl >Win <Ctrl R <Win a Enter", "run-command@3");
    expectFindings(">Ctrl >Win <Ctrl R <Win a", "system-keys@3");
}

TEST(Scan, StartLaunchAloneMakesSystemKeysRedundant) {
    expectFindings("Win a Enter Win+E", "start-launch@0");
    expectFindings("Win a Win+E", "system-keys@2");
}

TEST(Scan, OtherFindingsWithTheWindowsKeyLeaveSystemKeys) {
    expectFindings("Win+X I", "power-menu@0 system-keys@0");
    expectFindings("Win+R Alt+Y", "admin-approve@0 system-keys@0");
}

TEST(Scan, ListsDangersFirstAndEachSeverityByTime) {
    expectFindings(
        "Win+E@1 Ctrl+Shift+Esc@2 F6@3 Ctrl+A@4 Delete@5 Shift+Delete@6 PrtSc@7 Ctrl+V@8",
        "select-all-delete@4 permanent-delete@6 screenshot-paste@7 system-keys@1 task-manager@2");
}

TEST(Scan, ListsFindingsOfTheSameTimeById) {
    expectFindings("Ctrl+A@0 Delete@0 Ctrl+S@0 Shift+Delete@0 PrtSc@0 Ctrl+V@0",
                   "permanent-delete@0 screenshot-paste@0 select-all-delete@0 wipe-and-save@0");
}

TEST(Scan, OrdersTimesThatAreNotNumbers) {
    const ScanResult result = Scan(script("Shift+Delete@nan Ctrl+A@5 Delete@5 PrtSc@-1 Ctrl+V"));
    ASSERT_EQ(result.matches.size(), 3u);
    EXPECT_EQ(result.matches[0].id, "screenshot-paste");
    EXPECT_EQ(result.matches[1].id, "select-all-delete");
    EXPECT_EQ(result.matches[2].id, "permanent-delete");
    EXPECT_TRUE(std::isnan(result.matches[2].atSec));
}

TEST(Scan, KeepsNothingBetweenCalls) {
    const std::string first = report("Ctrl+C Ctrl+V Enter");
    EXPECT_EQ(report(">Ctrl"), R"({"level":"none","matches":[]})");
    EXPECT_EQ(report("C V Enter"), R"({"level":"none","matches":[]})");
    EXPECT_EQ(report("Ctrl+C Ctrl+V Enter"), first);
}

TEST(Scan, LeavesTheEventsAlone) {
    const ravelin::EventList events = script("Win+R a Enter");
    const ravelin::EventList before = events;
    Scan(events);
    EXPECT_EQ(events, before);
}

}  // namespace
}  // namespace MacroScan
