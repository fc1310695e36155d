#include "input/synthetic_input.h"

#include <gmock/gmock.h>

#include <limits>

#include "tests/support/engine_test.h"

namespace ravelin::test {
namespace {

using platform::KeyInput;
using platform::MouseInput;
using testing::ElementsAre;

class SyntheticInput : public EngineTest {
  protected:
    static MouseInput onlyMouse() {
        EXPECT_EQ(desktop.log.size(), 1U);
        return std::get<MouseInput>(desktop.log.at(0).input);
    }
    static KeyInput onlyKey() {
        EXPECT_EQ(desktop.log.size(), 1U);
        return std::get<KeyInput>(desktop.log.at(0).input);
    }
};

struct Normalised {
    platform::Size screen;
    platform::Point pixel;
    platform::Point sent;
};

class AbsoluteMove : public EngineTest, public testing::WithParamInterface<Normalised> {};

TEST_P(AbsoluteMove, SendsTheTruncatedFractionOfTheScreen) {
    const auto& [screen, pixel, sent] = GetParam();
    desktop.screen = screen;
    moveMouseAbsolute(pixel.x, pixel.y);
    ASSERT_EQ(desktop.log.size(), 1U);
    EXPECT_EQ(std::get<MouseInput>(desktop.log[0].input),
              (MouseInput{.dx = sent.x, .dy = sent.y, .mouseData = 0, .flags = 0x8001}));
}

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();

INSTANTIATE_TEST_SUITE_P(Table, AbsoluteMove,
                         testing::Values(Normalised{{1920, 1080}, {960, 540}, {32768, 32768}},
                                         Normalised{{1920, 1080}, {0, 0}, {0, 0}},
                                         Normalised{{1920, 1080}, {1919, 1079}, {65501, 65475}},
                                         Normalised{{1920, 1080}, {1920, 1080}, {65536, 65536}},
                                         // Left of and above the primary screen: toward zero.
                                         Normalised{{1920, 1080}, {-1, -1}, {-34, -60}},
                                         Normalised{{1920, 1080}, {-1920, -1}, {-65536, -60}},
                                         // The product keeps its low 32 bits and their sign.
                                         Normalised{{1000, 1000}, {32768, 65536}, {-2147483, 0}},
                                         Normalised{{1000, 1000}, {65537, 32767}, {65, 2147418}},
                                         Normalised{{1, 1}, {-32768, 32768}, {lowest, lowest}}));

TEST_F(SyntheticInput, ReadsTheScreenSizeOnEveryMove) {
    moveMouseAbsolute(100, 100);
    desktop.screen = {800, 600};
    moveMouseAbsolute(100, 100);
    EXPECT_EQ(std::get<MouseInput>(desktop.log[0].input).dx, 3413);
    EXPECT_EQ(std::get<MouseInput>(desktop.log[1].input).dx, 8192);
}

TEST_F(SyntheticInput, SendsARelativeMoveInRawUnits) {
    moveMouseRelative(-7, 9);
    EXPECT_EQ(onlyMouse(), (MouseInput{.dx = -7, .dy = 9, .mouseData = 0, .flags = 0x0001}));
}

TEST_F(SyntheticInput, SendsAButtonEventWithoutAMove) {
    sendMouseButton(0x0080);
    EXPECT_EQ(onlyMouse(), (MouseInput{.dx = 0, .dy = 0, .mouseData = 0, .flags = 0x0080}));
}

TEST_F(SyntheticInput, SendsTheWheelDeltaAsMouseData) {
    sendMouseButton(0x0800, static_cast<std::uint32_t>(-120));
    EXPECT_EQ(onlyMouse(),
              (MouseInput{.dx = 0, .dy = 0, .mouseData = 0xFFFFFF88, .flags = 0x0800}));
}

TEST_F(SyntheticInput, SendsKeysByScanCode) {
    sendKey(65, true);
    sendKey(65, false);
    const auto scan = static_cast<std::uint16_t>(simulatedScanCode(65));
    EXPECT_EQ(std::get<KeyInput>(desktop.log[0].input), (KeyInput{scan, 8}));
    EXPECT_EQ(std::get<KeyInput>(desktop.log[1].input), (KeyInput{scan, 10}));
}

TEST_F(SyntheticInput, MarksExtendedKeys) {
    sendKey(37, true);
    sendKey(37, false);
    EXPECT_EQ(std::get<KeyInput>(desktop.log[0].input).flags, 9U);
    EXPECT_EQ(std::get<KeyInput>(desktop.log[1].input).flags, 11U);
}

TEST_F(SyntheticInput, SendsRightCtrlAsItsLeftHandTwin) {
    sendKey(163, true);
    EXPECT_EQ(onlyKey(), (KeyInput{static_cast<std::uint16_t>(simulatedScanCode(162)), 8}));
}

TEST_F(SyntheticInput, SendsAKeyWithoutAScanCodeAllTheSame) {
    sendKey(7, true);
    EXPECT_EQ(onlyKey(), (KeyInput{0, 8}));
}

TEST_F(SyntheticInput, KnowsExactlyTenExtendedKeys) {
    std::vector<std::uint32_t> extended;
    for (std::uint32_t vk = 0; vk < 512; ++vk)
        if (isExtendedKey(vk)) extended.push_back(vk);
    EXPECT_THAT(extended, ElementsAre(33, 34, 35, 36, 37, 38, 39, 40, 45, 46));
}

TEST_F(SyntheticInput, NamesTheMouseButtonsAndTheBacktick) {
    // The system's names for these codes are never asked for.
    desktop.keyNames = {{192, "wrong"}, {1, "wrong"}, {2, "wrong"},
                        {4, "wrong"},   {5, "wrong"}, {6, "wrong"}};
    EXPECT_EQ(keyName(192), "`");
    EXPECT_EQ(keyName(1), "Left Mouse");
    EXPECT_EQ(keyName(2), "Right Mouse");
    EXPECT_EQ(keyName(4), "Middle Mouse");
    EXPECT_EQ(keyName(5), "Mouse 4 (Side)");
    EXPECT_EQ(keyName(6), "Mouse 5 (Side)");
}

TEST_F(SyntheticInput, TakesOtherNamesFromTheSystem) {
    desktop.keyNames = {{3, "Break"}, {37, "Flèche gauche"}, {162, "Ctrl"}, {65, "a"}};
    EXPECT_EQ(keyName(3), "Break");
    EXPECT_EQ(keyName(37), "Flèche gauche");
    EXPECT_EQ(keyName(163), "Ctrl");
    EXPECT_EQ(keyName(65), "a");
}

TEST_F(SyntheticInput, NamesAKeyThatTheSystemHasNoNameForByItsCode) {
    EXPECT_EQ(keyName(7), "Key[7]");
    EXPECT_EQ(keyName(255), "Key[255]");
    EXPECT_EQ(keyName(4294967295), "Key[4294967295]");
}

}  // namespace
}  // namespace ravelin::test
