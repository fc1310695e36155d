#include "app/detach_panel.h"

#include <gtest/gtest.h>

#include <vector>

namespace ravelin {
namespace {

class DetachPanel : public testing::Test {
  protected:
    std::string detach(const std::string& args) {
        return detachPanel(args, {.isOut = [this](std::string_view id) { return id == out_; },
                                  .pipeIsServed = [this] { return served_; },
                                  .engineUpdated = [this] { return engineUpdated_; },
                                  .saveSession = [this] { log_.emplace_back("save"); },
                                  .themeKey = "dawn",
                                  .start =
                                      [this](const std::string& id, const std::string& arguments) {
                                          log_.push_back(id + ": " + arguments);
                                          return starts_;
                                      }});
    }

    std::string out_;
    bool served_ = true;
    bool engineUpdated_ = false;
    bool starts_ = true;
    std::vector<std::string> log_;
};

TEST_F(DetachPanel, SavesTheSessionAndStartsTheChild) {
    EXPECT_EQ(detach(R"(["Auto clicker","panel-spammer",500,300,"daylight"])"), "");
    EXPECT_EQ(log_, (std::vector<std::string>{
                        "save",
                        "panel-spammer: --child \"Auto clicker|panel-spammer|500|300|daylight\""}));
}

TEST_F(DetachPanel, TheThemeIsTheProgramsWhereThePageNamesNone) {
    EXPECT_EQ(detach(R"(["A","panel-ui",1,2,""])"), "");
    EXPECT_EQ(log_.back(), "panel-ui: --child \"A|panel-ui|1|2|dawn\"");
}

TEST_F(DetachPanel, FractionsOfAPixelAreRounded) {
    EXPECT_EQ(detach(R"(["A","panel-ui",-10.6,300.4,"ravelin"])"), "");
    EXPECT_EQ(log_.back(), "panel-ui: --child \"A|panel-ui|-11|300|ravelin\"");
}

TEST_F(DetachPanel, TheTitleIsCleanedOfSeparatorsAndQuotes) {
    EXPECT_EQ(detach(R"(["A|\"b\"","panel-ui",1,2,"ravelin"])"), "");
    EXPECT_EQ(log_.back(), "panel-ui: --child \"Ab|panel-ui|1|2|ravelin\"");
}

TEST_F(DetachPanel, WhatIsNoPanelIsRefused) {
    const char* refused[] = {
        R"(["A","panel-x",1,2,"ravelin"])",
        R"(["A","",1,2,"ravelin"])",
        R"(["A","panel-ui",1,2])",
        R"(["A","panel-ui",1,2,"ravelin",3])",
        R"(["A","panel-ui","1",2,"ravelin"])",
        R"(["A","panel-ui",1,null,"ravelin"])",
        R"(["A","panel-ui",1,1e300,"ravelin"])",
        R"([1,"panel-ui",1,2,"ravelin"])",
        R"(["A",7,1,2,"ravelin"])",
        R"(["A","panel-ui",1,2,false])",
        R"({"0":"A"})",
        R"(["A","panel-ui",1,2,"ravelin")",
        "A,panel-ui,1,2,ravelin",
        "[]",
        "",
    };
    for (const auto* args : refused)
        EXPECT_EQ(detach(args), "There is no such panel to detach.") << args;
    EXPECT_TRUE(log_.empty());
}

TEST_F(DetachPanel, APanelThatIsOutIsRefusedBeforeAnythingIsDone) {
    out_ = "panel-ui";
    EXPECT_EQ(detach(R"(["A","panel-ui",1,2,"ravelin"])"),
              "This panel is already in a window of its own.");
    EXPECT_TRUE(log_.empty());
    EXPECT_EQ(detach(R"(["A","panel-keyspam",1,2,"ravelin"])"), "");
}

TEST_F(DetachPanel, WithoutItsPipeNothingIsStartedAndTheReasonIsTold) {
    served_ = false;
    EXPECT_EQ(detach(R"(["A","panel-ui",1,2,"ravelin"])"),
              "Another user's Ravelin is running on this computer. Until it is closed, panels "
              "cannot have windows of their own.");
    EXPECT_TRUE(log_.empty());
    served_ = true;
    EXPECT_EQ(detach(R"(["A","panel-ui",1,2,"ravelin"])"), "");
}

TEST_F(DetachPanel, WithAnotherEngineThanAtTheStartNothingIsStarted) {
    engineUpdated_ = true;
    EXPECT_EQ(detach(R"(["A","panel-ui",1,2,"ravelin"])"),
              "Panels cannot open in windows of their own because the browser engine of this "
              "computer was updated. Close all windows of Ravelin and start it again.");
    EXPECT_TRUE(log_.empty());
    engineUpdated_ = false;
    EXPECT_EQ(detach(R"(["A","panel-ui",1,2,"ravelin"])"), "");
}

TEST_F(DetachPanel, AChildThatDoesNotStartIsReported) {
    starts_ = false;
    EXPECT_EQ(detach(R"(["A","panel-ui",1,2,"ravelin"])"),
              "The window for this panel could not be opened.");
}

}  // namespace
}  // namespace ravelin
