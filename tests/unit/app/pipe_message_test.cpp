#include "app/pipe_message.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

using namespace std::string_view_literals;

TEST(PipeMessage, IsTheMethodASeparatorAndTheValue) {
    EXPECT_EQ(buildPipeMessage("panelHover", "1"), "panelHover|1");
    EXPECT_EQ(buildPipeMessage("startSpammer", ""), "startSpammer|");
}

TEST(PipeMessage, IsCutAt511Bytes) {
    const std::string value(600, 'v');
    EXPECT_EQ(buildPipeMessage("m", value), "m|" + std::string(509, 'v'));
    EXPECT_EQ(buildPipeMessage("m", value.substr(0, 509)).size(), 511U);
    EXPECT_EQ(parsePipeMessage("m|" + value)->value, std::string(509, 'v'));
    EXPECT_FALSE(parsePipeMessage(std::string(511, 'm') + "|value"));
    EXPECT_TRUE(parsePipeMessage(std::string(510, 'm') + "|value"));
}

TEST(PipeMessage, IsSplitAtTheFirstSeparator) {
    EXPECT_EQ(parsePipeMessage("a|b|c"), (PipeMessage{"a", "b|c"}));
    EXPECT_EQ(parsePipeMessage("a|"), (PipeMessage{"a", ""}));
    EXPECT_EQ(parsePipeMessage("|"), (PipeMessage{"", ""}));
}

TEST(PipeMessage, EndsAtTheFirstZero) {
    EXPECT_EQ(parsePipeMessage("a|b\0c"sv), (PipeMessage{"a", "b"}));
    EXPECT_FALSE(parsePipeMessage("a\0|b"sv));
    EXPECT_FALSE(parsePipeMessage("\0\0"sv));
}

TEST(PipeMessage, WithoutASeparatorIsNone) {
    EXPECT_FALSE(parsePipeMessage("startSpammer"));
    EXPECT_FALSE(parsePipeMessage(""));
}

TEST(PipeMessage, IsReadBackAsItWasBuilt) {
    EXPECT_EQ(parsePipeMessage(buildPipeMessage("updateSpammer", "0,0,0,5,0,0,1,10,0")),
              (PipeMessage{"updateSpammer", "0,0,0,5,0,0,1,10,0"}));
}

}  // namespace
}  // namespace ravelin
