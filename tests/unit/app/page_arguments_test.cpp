#include "app/page_arguments.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

TEST(SizeArgument, TakesTwoNumbersInEveryFormThatAPageSends) {
    for (const char* args : {"[420,560]", "[\"420\",\"560\"]", "[\"420,560\"]", "420, 560",
                             "[420.9,560px]", "[420,560,7]"}) {
        const auto size = readSizeArgument(args);
        ASSERT_TRUE(size) << args;
        EXPECT_EQ(size->width, 420) << args;
        EXPECT_EQ(size->height, 560) << args;
    }
}

TEST(SizeArgument, RefusesMissingValuesAndWords) {
    for (const char* args : {"", "[]", "[420]", "[420,]", "[\"wide\",560]", "[420,\"high\"]",
                             "[,560]", "[99999999999,1]", "[420,null]"})
        EXPECT_FALSE(readSizeArgument(args)) << args;
}

}  // namespace
}  // namespace ravelin
