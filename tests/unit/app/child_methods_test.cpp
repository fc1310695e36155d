#include "app/child_methods.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace ravelin {
namespace {

class ChildMethods : public testing::Test {
  protected:
    ChildMethods() {
        methods_ = childPageMethods({
            .forward = [this](std::string_view method,
                              std::string_view value) { note(method, value); },
            .resizeWindow =
                [this](std::int32_t w, std::int32_t h) {
                    note("resize", std::to_string(w) + "x" + std::to_string(h));
                },
            .beginDrag = [this] { note("drag", ""); },
            .close = [this] { note("close", ""); },
            .savedStatus = [] { return std::string("{\"state\":\"Idle\"}"); },
            .savedSettings = [] { return std::string("{\"sh\":1}"); },
            .environment =
                [] { return Environment{.scale = 2, .buttonsSwapped = false, .themeKey = "dawn"}; },
            .pagePainted = [this] { note("painted", ""); },
        });
    }

    void note(std::string_view what, std::string_view value) {
        log_.push_back(std::string(what) + "|" + std::string(value));
    }

    std::string call(const std::string& name, const std::string& args) const {
        const auto found = std::find_if(methods_.begin(), methods_.end(),
                                        [&](const PageMethod& m) { return m.name == name; });
        if (found == methods_.end()) throw std::logic_error("no method " + name);
        const auto reply = callPageMethod(*found, args);
        EXPECT_FALSE(reply.rejected) << name;
        return reply.json;
    }

    std::vector<PageMethod> methods_;
    std::vector<std::string> log_;
};

TEST_F(ChildMethods, AreBoundInTheirOrder) {
    const std::vector<std::string> order = {
        "updateSpammer",    "updateKeySpam", "removeKeySpamTarget", "setKeySpamChordMode",
        "reassignKey",      "startSpammer",  "stopSpammer",         "startKeySpam",
        "stopKeySpam",      "resizeWindow",  "beginWindowDrag",     "closeThisWindow",
        "getTrackerStatus", "getSettings",   "getEnvironment",      "pagePainted"};
    std::vector<std::string> names;
    for (const auto& method : methods_)
        names.push_back(method.name);
    EXPECT_EQ(names, order);
}

TEST_F(ChildMethods, TellTheEnvironmentOfTheirOwnWindow) {
    EXPECT_TRUE(call("getEnvironment", "[]")
                    .starts_with(R"({"scale":2,"buttonsSwapped":false,"themeKey":"dawn",)"));
}

TEST_F(ChildMethods, TellThatThePageIsPainted) {
    EXPECT_EQ(call("pagePainted", "[]"), "");
    EXPECT_EQ(log_, std::vector<std::string>{"painted|"});
}

TEST_F(ChildMethods, ForwardTheUnwrappedValue) {
    EXPECT_EQ(call("updateSpammer", "[\"1,2,3\"]"), "");
    call("removeKeySpamTarget", "[2]");
    call("setKeySpamChordMode", "[\"1\"]");
    call("reassignKey", "[\"rec\"]");
    call("updateKeySpam", "[1,2]");
    EXPECT_EQ(log_, (std::vector<std::string>{"updateSpammer|1,2,3", "removeKeySpamTarget|2",
                                              "setKeySpamChordMode|1", "reassignKey|rec",
                                              "updateKeySpam|1,2"}));
}

TEST_F(ChildMethods, StartsAndStopsCarryNoValue) {
    for (const char* name : {"startSpammer", "stopSpammer", "startKeySpam", "stopKeySpam"})
        EXPECT_EQ(call(name, "[\"ignored\"]"), "");
    EXPECT_EQ(log_, (std::vector<std::string>{"startSpammer|", "stopSpammer|", "startKeySpam|",
                                              "stopKeySpam|"}));
}

TEST_F(ChildMethods, ActOnTheirOwnWindow) {
    call("resizeWindow", "[450,320]");
    call("resizeWindow", "[450]");
    call("resizeWindow", "[\"wide\",3]");
    call("beginWindowDrag", "[\"\"]");
    call("closeThisWindow", "[]");
    EXPECT_EQ(log_, (std::vector<std::string>{"resize|450x320", "drag|", "close|"}));
}

TEST_F(ChildMethods, AnswerWhatTheMainProcessWroteDown) {
    EXPECT_EQ(call("getTrackerStatus", "[]"), "{\"state\":\"Idle\"}");
    EXPECT_EQ(call("getSettings", "[]"), "{\"sh\":1}");
    EXPECT_TRUE(log_.empty());
}

}  // namespace
}  // namespace ravelin
