#include "persistence/event_line.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <sstream>
#include <vector>

#include "tests/support/event_text.h"
#include "tests/support/reference_reader.h"

namespace ravelin {
namespace {

using namespace std::string_literals;

bool parseEventLine(std::string_view line, UnifiedEvent& event) {
    EventList events;
    if (!appendEvent(events, line)) return false;
    event = events[0];
    return true;
}

std::string lineOf(const UnifiedEvent& event) {
    const auto text = test::eventLine(event);
    EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
    return text.substr(0, text.size() - 2);
}

// The event as a stream writes it, field by field.
std::string streamed(const UnifiedEvent& e) {
    std::ostringstream stream;
    stream << e.kind << ',' << e.time << ',' << e.x << ',' << e.y << ',' << e.flags << ','
           << static_cast<std::int32_t>(e.vk) << ',' << (e.down != 0 ? "1" : "0") << ',' << e.wheel;
    return stream.str();
}

void expectAsReference(const std::string& line) {
    // Where nothing stands behind the line, so that a look behind it shows under a sanitizer.
    const std::vector<char> copy(line.begin(), line.end());
    const std::string_view text(copy.data(), copy.size());
    EventList events;
    const auto expected = test::referenceEvent(line);
    ASSERT_EQ(appendEvent(events, text), expected.has_value()) << '"' << line << '"';
    ASSERT_EQ(events.size(), expected ? 1U : 0U) << '"' << line << '"';
    if (expected) {
        ASSERT_TRUE(test::sameEvent(events[0], *expected)) << '"' << line << '"';
    }
}

TEST(EventLine, HoldsTheFieldsInTheirOrder) {
    UnifiedEvent event;
    ASSERT_TRUE(parseEventLine("3,1.25,-4,5,6,65,1,-120", event));
    EXPECT_EQ(event, (UnifiedEvent{3, 1.25, -4, 5, 6, 65, 1, -120}));
    EXPECT_EQ(lineOf(event), "3,1.25,-4,5,6,65,1,-120");
    EXPECT_EQ(lineOf({}), "0,0,0,0,0,0,0,0");
}

TEST(EventLine, HoldsTheExtremesOfEveryField) {
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    constexpr auto most = std::numeric_limits<std::int32_t>::max();
    for (const UnifiedEvent& event :
         {UnifiedEvent{least, -1.23457e-300, least, least, 4294967295U, 4294967295U, 1, least},
          UnifiedEvent{most, 1.79769e+308, most, most, 2147483648U, 2147483648U, 0, most}}) {
        UnifiedEvent read;
        ASSERT_TRUE(parseEventLine(lineOf(event), read)) << lineOf(event);
        EXPECT_EQ(read, event);
        EXPECT_EQ(lineOf(event), streamed(event));
    }
    EXPECT_EQ(lineOf({least, -1.23457e-300, least, least, 4294967295U, 4294967295U, 1, least}),
              "-2147483648,-1.23457e-300,-2147483648,-2147483648,4294967295,-1,1,-2147483648");
}

TEST(EventLine, WritesTimesWithSixDigits) {
    const auto timeText = [](double time) {
        UnifiedEvent event;
        event.time = time;
        const auto line = lineOf(event);
        return line.substr(2, line.find(',', 2) - 2);
    };
    EXPECT_EQ(timeText(1234567.0), "1.23457e+06");
    EXPECT_EQ(timeText(999999.4), "999999");
    EXPECT_EQ(timeText(999999.5), "1e+06");
    EXPECT_EQ(timeText(12.3456789), "12.3457");
    EXPECT_EQ(timeText(0.000123456789), "0.000123457");
    EXPECT_EQ(timeText(1e-5), "1e-05");
    EXPECT_EQ(timeText(-0.5), "-0.5");
}

TEST(EventLine, WritesAnyTrueFlagAsOne) {
    UnifiedEvent event;
    event.down = 255;
    EXPECT_EQ(lineOf(event), "0,0,0,0,0,0,1,0");
}

TEST(EventLine, IsWrittenAsAStreamWritesIt) {
    std::mt19937 random(7);
    const auto any = [&] { return static_cast<std::int32_t>(random() >> (random() % 32)); };
    for (int i = 0; i < 50000; ++i) {
        UnifiedEvent event;
        event.kind = any();
        event.time =
            static_cast<double>(any()) * std::pow(10.0, static_cast<int>(random() % 20) - 10);
        event.x = any();
        event.y = -any();
        event.flags = static_cast<std::uint32_t>(any());
        event.vk = static_cast<std::uint32_t>(any());
        event.down = static_cast<std::uint8_t>(random() % 3);
        event.wheel = any();
        ASSERT_EQ(lineOf(event), streamed(event));
        expectAsReference(lineOf(event));
    }
}

TEST(EventLine, NeedsEightFieldsThatConvert) {
    const std::string good[] = {"3", "1.5", "4", "5", "6", "65", "1", "120"};
    for (std::size_t changed = 0; changed < 8; ++changed) {
        for (const auto& text : {""s, "x"s, "-"s, "99999999999999999999"s, "."s}) {
            // Only the time holds a number that large.
            const bool holds = changed == 1 && text.size() > 10;
            std::string line;
            for (std::size_t i = 0; i < 8; ++i)
                line += (i > 0 ? "," : "") + (i == changed ? text : good[i]);
            UnifiedEvent event;
            EXPECT_EQ(parseEventLine(line, event), holds) << line;
        }
    }
    UnifiedEvent event;
    for (const auto* line : {"", ",", "3", "3,1.5,4,5,6,65,1", "3,1.5,4,5,6,65,1,", "PROFILE:x",
                             ",,,,,,,", "3;1.5;4;5;6;65;1;120"})
        EXPECT_FALSE(parseEventLine(line, event)) << line;
}

TEST(EventLine, IgnoresWhatFollowsANumberAndTheEighthField) {
    UnifiedEvent event;
    ASSERT_TRUE(parseEventLine(" 3x,\t1.5s,+4 ,5.9,6u,65#,2y,-120 wheel,and,more", event));
    EXPECT_EQ(event, (UnifiedEvent{3, 1.5, 4, 5, 6, 65, 1, -120}));
}

TEST(EventLine, ReadsEachFieldAsItsOwnType) {
    UnifiedEvent event;
    ASSERT_TRUE(parseEventLine("-1,0x10,-2147483648,2147483647,-1,-1,-7,0", event));
    EXPECT_EQ(event,
              (UnifiedEvent{-1, 16.0, -2147483648, 2147483647, 4294967295U, 4294967295U, 1, 0}));
    ASSERT_TRUE(parseEventLine("0,nan,0,0,4294967295,0,00,0", event));
    EXPECT_TRUE(std::isnan(event.time));
    ASSERT_TRUE(parseEventLine("0,-inf,0,0,0,0,0,0", event));
    EXPECT_EQ(event.time, -std::numeric_limits<double>::infinity());
    for (const auto* line :
         {"2147483648,0,0,0,0,0,0,0", "0,1e400,0,0,0,0,0,0", "0,1e-400,0,0,0,0,0,0",
          "0,0,2147483648,0,0,0,0,0", "0,0,0,-2147483649,0,0,0,0", "0,0,0,0,4294967296,0,0,0",
          "0,0,0,0,0,2147483648,0,0", "0,0,0,0,0,0,2147483648,0", "0,0,0,0,0,0,0,2147483648"})
        EXPECT_FALSE(parseEventLine(line, event)) << line;
}

TEST(EventLine, ReadsLongNumbersToTheLastDigit) {
    for (const auto* line :
         {"0000000000000000003,1.5,4,5,6,65,1,120", "0,0.1234567890123456789,0,0,0,0,0,0",
          "0,123456789012345678901234567890,0,0,0,0,0,0", "0,9007199254740993,0,0,0,0,0,0",
          "0,9007199254740992.5,0,0,0,0,0,0", "0,0.00000000000000000000000000001,0,0,0,0,0,0",
          "0,1.7976931348623157e308,0,0,0,0,0,0", "0,4503599627370497.5,0,0,0,0,0,0",
          "0,1.,0,0,0,0,0,0", "0,.5,0,0,0,0,0,0", "0,-.5,0,0,0,0,0,0", "0,-0,0,0,0,0,0,0",
          "0,0.000,0,0,0,0,0,0", "0,1..5,0,0,0,0,0,0", "0,1.5e,0,0,0,0,0,0",
          "-0,0,-0,-0,-0,-0,-0,-0", "0,0,999999999,-999999999,999999999,1000000000,1,-1000000000",
          "0,0,2147483647,-2147483648,4294967295,2147483647,1,2147483647"})
        expectAsReference(line);
}

TEST(EventLine, IsReadAsTheReferenceReadsIt) {
    const std::string alphabet = "0123456789,,,,,,,,..--+e xXn\t\r\0ia"s;
    std::mt19937 random(11);
    const auto anyOf = [&](const std::string& text) { return text[random() % text.size()]; };
    for (int i = 0; i < 200000 && !::testing::Test::HasFailure(); ++i) {
        // A sound line with a few bytes changed, or bytes alone.
        std::string line = "3,12.3456,-104,768,2,65,1,-120";
        const auto changes = random() % 4;
        for (std::size_t n = 0; n < changes; ++n) {
            const auto at = random() % line.size();
            switch (random() % 3) {
                case 0:
                    line[at] = anyOf(alphabet);
                    break;
                case 1:
                    line.insert(at, 1, anyOf(alphabet));
                    break;
                default:
                    line.erase(at, 1);
            }
        }
        expectAsReference(line);
    }
}

// Lines like those that the program writes, with numbers of every length, points and signs where
// they belong and where they do not, and now and then a field more or less.
TEST(EventLine, IsReadAsTheReferenceReadsItWhateverItsShape) {
    std::mt19937 random(23);
    const auto chance = [&random](unsigned n) { return random() % n == 0; };
    const auto digits = [&random](std::size_t atLeast, std::size_t atMost) {
        std::string text;
        for (auto n = atLeast + random() % (atMost - atLeast + 1); n > 0; --n)
            text += static_cast<char>('0' + random() % 10);
        return text;
    };
    for (int i = 0; i < 200000 && !::testing::Test::HasFailure(); ++i) {
        const std::size_t longest = 1 + random() % 10;
        const std::size_t shortest = chance(20) ? 0 : 1;
        const bool still = chance(2);
        std::string line;
        for (std::size_t field = 0, count = chance(30) ? 6 + random() % 4 : 8; field < count;
             ++field) {
            if (field > 0) line += ',';
            if (chance(6)) line += '-';
            line += field == 0 || (field > 3 && still) ? digits(1, 1) : digits(shortest, longest);
            if (field == 1 ? !chance(4) : chance(100)) line += '.' + digits(shortest, longest);
        }
        if (chance(50)) line.insert(random() % line.size(), 1, "/:x. \t,"[random() % 7]);
        expectAsReference(line);
        expectAsReference(line.substr(0, line.size() - 1 - random() % 9));
    }
}

TEST(EventLine, IsReadUpToItsEndWhateverItsLength) {
    for (std::size_t length = 1; length <= 70; ++length) {
        for (const std::string start : {"0,1.5,", "0,12345678.1234567,", "3,0.001,-1,-12345678,"}) {
            for (const char* end : {"", "0,0,0,0", "2,65,1,-120", ",,,,", ",,,,,"}) {
                const std::string filled = start + end;
                if (filled.size() > length) continue;
                // A number in the middle that takes up what is missing.
                expectAsReference(start + std::string(length - filled.size(), '7') + end);
                expectAsReference(start + std::string(length - filled.size(), ',') + end);
                expectAsReference(std::string(length - filled.size(), ',') + start + end);
            }
        }
    }
}

}  // namespace
}  // namespace ravelin
