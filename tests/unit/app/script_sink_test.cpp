#include "app/script_sink.h"

#include <gtest/gtest.h>

#include <vector>

namespace ravelin {
namespace {

TEST(ScriptSink, DropsANoticeBeforeThePageExists) {
    setPageScriptSink({});
    runPageScript("lost()");
    std::vector<std::string> seen;
    setPageScriptSink([&](const std::string& script) { seen.push_back(script); });
    EXPECT_TRUE(seen.empty());
    setPageScriptSink({});
}

TEST(ScriptSink, HandsScriptsOverInOrderUntilItIsTakenAway) {
    std::vector<std::string> seen;
    setPageScriptSink([&](const std::string& script) { seen.push_back(script); });
    runPageScript("a()");
    runPageScript("b()");
    setPageScriptSink({});
    runPageScript("c()");
    EXPECT_EQ(seen, (std::vector<std::string>{"a()", "b()"}));
}

}  // namespace
}  // namespace ravelin
