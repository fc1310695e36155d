#include "support/real_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>

namespace ravelin {
namespace {

std::string streamed(double value) {
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

TEST(RealText, IsWhatAStreamWrites) {
    const struct {
        double value;
        const char* text;
    } cases[] = {{0, "0"},
                 {-0.0, "-0"},
                 {1.5, "1.5"},
                 {100, "100"},
                 {1234567.0, "1.23457e+06"},
                 {999999.5, "1e+06"},
                 {999999.4999999999, "999999"},
                 {0.0001, "0.0001"},
                 {0.00001, "1e-05"},
                 {0.000099999949, "9.99999e-05"},
                 {0.00009999999, "0.0001"},
                 {123456.5, "123456"},
                 {123457.5, "123458"},
                 {1e100, "1e+100"},
                 {-1.7976931348623157e308, "-1.79769e+308"},
                 {4.9406564584124654e-324, "4.94066e-324"},
                 {std::numeric_limits<double>::infinity(), "inf"},
                 {-std::numeric_limits<double>::infinity(), "-inf"}};
    for (const auto& c : cases) {
        EXPECT_EQ(realText(c.value), c.text);
        EXPECT_EQ(streamed(c.value), c.text);
    }
    EXPECT_EQ(realText(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(RealText, StaysWithinItsRoom) {
    for (const double value : {0.000123456, 0.0001, 123456.0, 99999.5, 1.5, -1.23456e-300}) {
        std::string text(realTextSize + 1, '#');
        writeReal(text.data(), value);
        EXPECT_EQ(text.back(), '#') << value;
    }
}

TEST(RealText, IsWhatAStreamWritesForNumbersOfEverySize) {
    std::mt19937 random(20240229);
    const auto expectSame = [](double value) {
        EXPECT_EQ(realText(value), streamed(value)) << std::setprecision(17) << value;
        EXPECT_EQ(realText(-value), streamed(-value)) << std::setprecision(17) << value;
    };
    std::uniform_real_distribution<double> digits(1, 10);
    for (int i = 0; i < 100000 && !::testing::Test::HasFailure(); ++i) {
        // Sizes around those of times, then of every exponent.
        const int exponent = i % 2 == 0 ? static_cast<int>(random() % 14) - 6
                                        : static_cast<int>(random() % 600) - 300;
        expectSame(digits(random) * std::pow(10.0, exponent));
    }
    // Halfway between two texts, where the last digit turns on a hair, and its neighbours.
    for (int i = 0; i < 100000 && !::testing::Test::HasFailure(); ++i) {
        const int places = static_cast<int>(random() % 12) - 1;
        const double halfway =
            (static_cast<double>(random() % 1000000) + 0.5) / std::pow(10.0, places);
        expectSame(halfway);
        expectSame(std::nextafter(halfway, 0.0));
        expectSame(std::nextafter(halfway, 1e300));
    }
    // Of few digits, with zeros behind them that are not written.
    for (int i = 0; i < 100000 && !::testing::Test::HasFailure(); ++i) {
        const double few = static_cast<double>(random() % 1000) * std::pow(10, random() % 5);
        expectSame(few / std::pow(10, random() % 9));
        expectSame(static_cast<double>(random()) / 1e6);
    }
    for (int exponent = -1074; exponent < 1024; ++exponent)
        expectSame(std::ldexp(1.0, exponent));
}

}  // namespace
}  // namespace ravelin
