// The processes of torn-off panels: this test program, started again as one of them.
#include "app/child_panels.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "app/child_panel_table.h"
#include "input/engine_state.h"
#include "tests/windows/harness/eventually.h"

namespace ravelin {
namespace {

using test::eventually;
using Ids = std::vector<std::string>;

// As the test program's entry understands them.
constexpr char stays[] = "--child \"stays\"";
constexpr char ends[] = "--child \"ends\"";

class ChildPanels : public ::testing::Test {
  protected:
    void TearDown() override {
        endAllChildPanels();
        engine.panelHover.exchange(false);
    }

    // A handle of the test's own, which outlives the table's.
    static ProcessHandle processOf(const std::string& id) {
        ProcessHandle copy;
        DuplicateHandle(GetCurrentProcess(), childPanelTable().at(id).get(), GetCurrentProcess(),
                        copy.put(), 0, FALSE, DUPLICATE_SAME_ACCESS);
        return copy;
    }
    static bool hasEnded(const ProcessHandle& process) {
        return WaitForSingleObject(process.get(), 20'000) == WAIT_OBJECT_0;
    }
    static DWORD exitCodeOf(const ProcessHandle& process) {
        DWORD code = MAXDWORD;
        GetExitCodeProcess(process.get(), &code);
        return code;
    }
};

TEST_F(ChildPanels, AreOutFromTheirStartOn) {
    EXPECT_FALSE(isPanelOut("panel-ui"));
    ASSERT_TRUE(startChildPanel("panel-ui", stays));
    EXPECT_TRUE(isPanelOut("panel-ui"));
    EXPECT_FALSE(isPanelOut("panel-spammer"));
    EXPECT_EQ(collectEndedPanels(), Ids());
}

TEST_F(ChildPanels, AreReportedOnceWhenTheirProcessHasEnded) {
    ASSERT_TRUE(startChildPanel("panel-ui", ends));
    ASSERT_TRUE(startChildPanel("panel-keyspam", stays));
    ASSERT_TRUE(hasEnded(processOf("panel-ui")));
    EXPECT_TRUE(isPanelOut("panel-ui"));
    EXPECT_EQ(collectEndedPanels(), Ids{"panel-ui"});
    EXPECT_EQ(collectEndedPanels(), Ids());
    EXPECT_FALSE(isPanelOut("panel-ui"));
    EXPECT_TRUE(isPanelOut("panel-keyspam"));
}

TEST_F(ChildPanels, AreReportedInTheOrderOfTheirIds) {
    for (const char* id : {"panel-ui", "panel-keyspam", "panel-spammer"}) {
        ASSERT_TRUE(startChildPanel(id, ends));
        ASSERT_TRUE(hasEnded(processOf(id)));
    }
    EXPECT_EQ(collectEndedPanels(), (Ids{"panel-keyspam", "panel-spammer", "panel-ui"}));
}

TEST_F(ChildPanels, ThatEndEndTheHover) {
    engine.panelHover.exchange(true);
    ASSERT_TRUE(startChildPanel("panel-ui", stays));
    EXPECT_EQ(collectEndedPanels(), Ids());
    EXPECT_TRUE(engine.panelHover.load());
    const auto process = processOf("panel-ui");
    TerminateProcess(process.get(), 7);
    ASSERT_TRUE(hasEnded(process));
    EXPECT_EQ(collectEndedPanels(), Ids{"panel-ui"});
    EXPECT_FALSE(engine.panelHover.load());
}

TEST_F(ChildPanels, AreAllEndedWithTheProgram) {
    ASSERT_TRUE(startChildPanel("panel-ui", stays));
    ASSERT_TRUE(startChildPanel("panel-keyspam", stays));
    const auto first = processOf("panel-ui");
    const auto second = processOf("panel-keyspam");
    endAllChildPanels();
    EXPECT_TRUE(hasEnded(first));
    EXPECT_TRUE(hasEnded(second));
    EXPECT_EQ(exitCodeOf(first), 0U);
    EXPECT_EQ(exitCodeOf(second), 0U);
    EXPECT_FALSE(isPanelOut("panel-ui"));
    EXPECT_EQ(collectEndedPanels(), Ids());
}

}  // namespace
}  // namespace ravelin
