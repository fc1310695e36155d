#include "support/decimal_digits.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

namespace ravelin {
namespace {

std::string written(std::int64_t value) {
    std::string text(integerTextSize + 1, '#');
    const auto* const end = writeInteger(text.data(), value);
    EXPECT_EQ(text.back(), '#') << value;
    return text.substr(0, static_cast<std::size_t>(end - text.data()));
}

void expectDigits(std::uint32_t number) {
    const auto digits = eightDigits(number);
    std::uint32_t left = number;
    for (int i = 7; i >= 0; --i, left /= 10)
        ASSERT_EQ((digits >> i * 8) & 0xFF, left % 10) << number;
}

TEST(DecimalDigits, AreThoseOfTheNumber) {
    for (std::uint32_t half = 0; half < 10000 && !::testing::Test::HasFailure(); ++half) {
        expectDigits(half);
        expectDigits(half * 10000);
        expectDigits(half * 10000 + half);
        expectDigits(half * 10000 + 9999 - half);
        expectDigits(half * 10000 + 9999);
    }
}

TEST(DecimalDigits, MakeUpIntegersOfEveryLength) {
    const auto expectSame = [](std::int64_t value) {
        EXPECT_EQ(written(value), std::to_string(value));
        if (value <= std::numeric_limits<std::int32_t>::max()) {
            EXPECT_EQ(written(-value), std::to_string(-value));
        }
    };
    for (std::int64_t power = 1; power <= 1000000000; power *= 10)
        for (std::int64_t value = power - 2; value <= power + 2; ++value)
            expectSame(value < 0 ? 0 : value);
    expectSame(std::numeric_limits<std::int32_t>::max());
    expectSame(std::numeric_limits<std::uint32_t>::max());
    EXPECT_EQ(written(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    std::mt19937 random(3);
    for (int i = 0; i < 100000; ++i)
        expectSame(static_cast<std::uint32_t>(random()) >> random() % 32);
}

}  // namespace
}  // namespace ravelin
