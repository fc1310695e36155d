#include "support/number_text.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <vector>

#include "tests/support/standard_conversions.h"

namespace ravelin {
namespace {

using namespace std::string_literals;

const std::vector<std::string>& nastyTexts() {
    static const std::vector<std::string> texts = {
        "",
        " ",
        "0",
        "-0",
        "+0",
        "00012",
        "12abc",
        "abc",
        "-",
        "+",
        "+-5",
        "-+5",
        "--5",
        "- 5",
        "\t\n\v\f\r 42",
        "\xA0"
        "5",
        "\x85"
        "5",
        "5 5",
        "5,5",
        "1_000",
        "0x10",
        "0X1F",
        "-0x10",
        "0x",
        "0xg",
        "2147483647",
        "2147483648",
        "-2147483648",
        "-2147483649",
        "4294967295",
        "4294967296",
        "-1",
        "-4294967295",
        "-4294967296",
        "99999999999999999999999999",
        "-99999999999999999999",
        "18446744073709551615",
        "18446744073709551616",
        "9223372036854775807",
        "4294967295x",
        "000000000000000000000000000000000000000007",
        // Zero bytes end a text of the standard conversions.
        "12\0 34"s,
        "\0 12"s,
        " \0 12"s,
        "1\0.5"s,
        "nan(\0)"s,
        "inf\0inity"s,
        "0x\0 1"s,
        // Real numbers.
        "1.5",
        "-1.5",
        "+1.5",
        ".5",
        "5.",
        ".",
        "-.",
        "+.",
        "1e5",
        "1E5",
        "1e",
        "1e+",
        "1e-",
        "1e+x",
        "1.e2",
        ".e2",
        "1e5.5",
        "1.5.5",
        "1,5",
        "e5",
        "inf",
        "-inf",
        "+inf",
        "INF",
        "infinity",
        "INFinit",
        "infx",
        "nan",
        "-nan",
        "+nan",
        "NaN",
        "nan(",
        "nan()",
        "nan(123)",
        "nan(abc_1)",
        "nan(1 2)",
        "nanx",
        "in",
        "na",
        "1e400",
        "-1e400",
        "1e-400",
        "-1e-400",
        "1e99999999999999999999",
        "1e-99999999999999999999",
        "0e99999999999999999999",
        "1.7976931348623157e308",
        "1.7976931348623158e308",
        "1.7976931348623159e308",
        "2.2250738585072014e-308",
        "2.2250738585072011e-308",
        "2.225073858507201e-308",
        "4.9406564584124654e-324",
        "2.4e-324",
        "2.5e-324",
        "1e-310",
        "3.4028235e38",
        "3.4028236e38",
        "1.17549435e-38",
        "1.1754942e-38",
        "1e-40",
        "1e-45",
        "7e-46",
        "1e39",
        "0x1p-1074",
        "0x1p-149",
        "0x1p-1022",
        "0x1p-1075",
        "0x1.8p1",
        "0x.8",
        "0x.",
        "0x.p1",
        "-0x1.fffffffffffffp1023",
        "0x1p1024",
        "0x1p",
        "0x1p+",
        "0x1.00000000000008p0",
        "9007199254740993",
        "9007199254740992.999999999999999999999",
        "0.1",
        "0.2",
        "0.3",
        "123456789012345678901234567890.123456789",
        "8.5e-46",
        "1.4e-45",
        "0.000000000000000000000000000000000000000000000000000000000000000001",
        "100000000000000000000000000000000000000000000000000000000000000000",
    };
    return texts;
}

// Texts out of the pieces that matter to the conversions, most of them nearly numbers.
class TextMaker {
  public:
    std::string next() {
        static const std::vector<std::string> pieces = {"0",
                                                        "1",
                                                        "9",
                                                        "12",
                                                        "4294967295",
                                                        "2147483648",
                                                        ".",
                                                        ".",
                                                        "e",
                                                        "E",
                                                        "e-",
                                                        "e+",
                                                        "-",
                                                        "+",
                                                        " ",
                                                        "\t",
                                                        "\n",
                                                        "0x",
                                                        "0X",
                                                        "p",
                                                        "p-",
                                                        "a",
                                                        "f",
                                                        "inf",
                                                        "na",
                                                        "nan",
                                                        "(a)",
                                                        "inity",
                                                        "300",
                                                        "308",
                                                        "38",
                                                        "45",
                                                        "324",
                                                        "x",
                                                        ",",
                                                        "\0"s,
                                                        "00000000000000000000",
                                                        "12345678901234567890",
                                                        "\r",
                                                        "\x80",
                                                        "'",
                                                        "5",
                                                        "7",
                                                        "3"};
        std::string text;
        const auto count = random_() % 9;
        for (std::size_t i = 0; i < count; ++i)
            text += pieces[random_() % pieces.size()];
        return text;
    }
    // A well-formed real number of any size and length.
    std::string number() {
        std::string text = random_() % 4 == 0 ? "-" : "";
        for (auto i = random_() % 25 + 1; i > 0; --i)
            text += digit();
        if (random_() % 4 != 0) text += '.';
        for (auto i = random_() % 25; i > 0; --i)
            text += digit();
        if (random_() % 2 == 0)
            text += "e" + std::to_string(static_cast<int>(random_() % 700) - 350);
        return text;
    }

  private:
    char digit() { return static_cast<char>('0' + random_() % 10); }
    std::mt19937 random_{20240229};
};

void expectStandard(const std::string& text) {
    using namespace test;
    EXPECT_TRUE(sameConversion(toInt(text), standardInt(text))) << '"' << text << '"';
    EXPECT_TRUE(sameConversion(toLong(text), standardInt(text))) << '"' << text << '"';
    EXPECT_TRUE(sameConversion(toUnsignedLong(text), standardUnsignedLong(text)))
        << '"' << text << '"';
    EXPECT_TRUE(sameConversion(toFloat(text), standardFloat(text)))
        << '"' << text << "\" " << toFloat(text).value << ' ' << standardFloat(text).value;
    EXPECT_TRUE(sameConversion(toDouble(text), standardDouble(text)))
        << '"' << text << "\" " << toDouble(text).value << ' ' << standardDouble(text).value;
}

TEST(NumberText, IsReadAsTheStandardConversionsReadIt) {
    for (const auto& text : nastyTexts())
        expectStandard(text);
    TextMaker maker;
    for (int i = 0; i < 200000 && !::testing::Test::HasFailure(); ++i)
        expectStandard(maker.next());
    for (int i = 0; i < 100000 && !::testing::Test::HasFailure(); ++i)
        expectStandard(maker.number());
}

TEST(NumberText, MayBeAPieceOfALongerText) {
    const std::string line = "12,34.5,0x1";
    const std::string_view view = line;
    EXPECT_EQ(toInt(view.substr(0, 1)).value, 1);
    EXPECT_EQ(toDouble(view.substr(3, 3)).value, 34.0);
    EXPECT_EQ(toDouble(view.substr(8, 1)).value, 0.0);
    EXPECT_EQ(toDouble(view.substr(8, 2)).value, 0.0);
    EXPECT_EQ(toStrictInt(view.substr(0, 2)).value, 12);
}

TEST(NumberText, IsReadByTheThrowingConversionWithTheStandardTexts) {
    EXPECT_EQ(toIntOrThrow(" -12x"), -12);
    const auto messageOf = [](std::string_view text) -> std::string {
        try {
            toIntOrThrow(text);
        } catch (const std::invalid_argument& error) {
            return std::string("invalid: ") + error.what();
        } catch (const std::out_of_range& error) {
            return std::string("range: ") + error.what();
        }
        return "";
    };
    EXPECT_EQ(messageOf("x"), "invalid: invalid stoi argument");
    EXPECT_EQ(messageOf(""), "invalid: invalid stoi argument");
    EXPECT_EQ(messageOf("2147483648"), "range: stoi argument out of range");
}

TEST(NumberText, IsAStrictIntegerOnlyAsAWhole) {
    EXPECT_EQ(toStrictInt("0").value, 0);
    EXPECT_EQ(toStrictInt("-2147483648").value, -2147483648);
    EXPECT_EQ(toStrictInt("+2147483647").value, 2147483647);
    for (const auto* text : {"+5", " 5", "\n5", " \t\v\f\r5", " +5", "05"})
        EXPECT_EQ(toStrictInt(text).value, 5) << text;
    for (const auto* text :
         {"", "-", "+", "5ms", "5 ", "5\n", "5.0", "0x5", "2147483648", "x", "+ 5", "--5", " "})
        EXPECT_FALSE(toStrictInt(text)) << text;
    EXPECT_FALSE(toStrictInt("5\0"s));
}

}  // namespace
}  // namespace ravelin
