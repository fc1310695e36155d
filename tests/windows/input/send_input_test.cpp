// Every kind of record that the engine sends, as the rest of the desktop sees it.
#include <gtest/gtest.h>

#include "input/platform.h"
#include "tests/windows/harness/hook_probe.h"
#include "tests/windows/harness/real_input.h"

namespace ravelin::platform {
namespace {

using test::HookProbe;
using test::SeenKey;
using test::SeenMouse;

// Windows finds the virtual key of a scan code; Wine 8 hands the scan code on alone.
bool isKeyOfScanCode(DWORD vk, DWORD expected) {
    return vk == expected || (vk == 0 && test::hasRealInput());
}

class SendInputTest : public ::testing::Test {
  protected:
    // What the desktop sees of one mouse record.
    std::vector<SeenMouse> seenAfter(const MouseInput& input, std::size_t count = 1) {
        probe_.mouse.clear();
        send(input);
        EXPECT_TRUE(probe_.mouse.await([=](const auto& events) { return events.size() >= count; }));
        return probe_.mouse.all();
    }

    std::vector<SeenKey> seenAfter(const KeyInput& input) {
        probe_.keys.clear();
        send(input);
        EXPECT_TRUE(probe_.keys.await([](const auto& events) { return !events.empty(); }));
        return probe_.keys.all();
    }

    // Nothing that these tests send reaches a program.
    HookProbe probe_{HookProbe::Mode::swallowInjected};
};

TEST_F(SendInputTest, AButtonEventIsOneInjectedEventWhereTheCursorIs) {
    SetCursorPos(300, 200);
    const struct {
        std::uint32_t flags;
        UINT message;
    } cases[] = {
        {MOUSEEVENTF_LEFTDOWN, WM_LBUTTONDOWN},   {MOUSEEVENTF_LEFTUP, WM_LBUTTONUP},
        {MOUSEEVENTF_RIGHTDOWN, WM_RBUTTONDOWN},  {MOUSEEVENTF_RIGHTUP, WM_RBUTTONUP},
        {MOUSEEVENTF_MIDDLEDOWN, WM_MBUTTONDOWN}, {MOUSEEVENTF_MIDDLEUP, WM_MBUTTONUP},
    };
    for (const auto& one : cases) {
        const auto seen = seenAfter(MouseInput{.flags = one.flags});
        ASSERT_EQ(seen.size(), 1U) << one.flags;
        EXPECT_EQ(seen[0].message, one.message);
        EXPECT_EQ(seen[0].point.x, 300);
        EXPECT_EQ(seen[0].point.y, 200);
        EXPECT_TRUE(seen[0].injected);
        EXPECT_EQ(seen[0].extra, 0U);
    }
}

TEST_F(SendInputTest, AWheelEventCarriesItsSignedDelta) {
    for (const std::int32_t delta : {120, -120, 30, -360}) {
        const auto seen = seenAfter(
            MouseInput{.mouseData = static_cast<std::uint32_t>(delta), .flags = MOUSEEVENTF_WHEEL});
        ASSERT_EQ(seen.size(), 1U);
        EXPECT_EQ(seen[0].message, UINT{WM_MOUSEWHEEL});
        EXPECT_EQ(static_cast<std::int16_t>(HIWORD(seen[0].mouseData)), delta);
        EXPECT_TRUE(seen[0].injected);
    }
}

TEST_F(SendInputTest, ASideButtonEventNamesTheButtonInItsData) {
    const auto seen = seenAfter(MouseInput{.mouseData = XBUTTON2, .flags = MOUSEEVENTF_XDOWN});
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].message, UINT{WM_XBUTTONDOWN});
    EXPECT_EQ(HIWORD(seen[0].mouseData), XBUTTON2);
}

TEST_F(SendInputTest, AnAbsoluteMoveGoesToItsShareOfThePrimaryScreen) {
    SetCursorPos(10, 10);
    const Size screen = primaryScreen();
    const std::int32_t x = screen.cx / 2;
    const std::int32_t y = screen.cy / 4;
    const auto seen = seenAfter(
        MouseInput{.dx = 32768, .dy = 16384, .flags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE});
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].message, UINT{WM_MOUSEMOVE});
    EXPECT_NEAR(seen[0].point.x, x, 1);
    EXPECT_NEAR(seen[0].point.y, y, 1);
    EXPECT_TRUE(seen[0].injected);
    EXPECT_EQ(seen[0].extra, 0U);
}

TEST_F(SendInputTest, ARelativeMoveGoesByItsDistance) {
    SetCursorPos(300, 200);
    // A single unit is never accelerated.
    const auto seen = seenAfter(MouseInput{.dx = 1, .dy = -1, .flags = MOUSEEVENTF_MOVE});
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].message, UINT{WM_MOUSEMOVE});
    EXPECT_EQ(seen[0].point.x, 301);
    EXPECT_EQ(seen[0].point.y, 199);
}

TEST_F(SendInputTest, AKeyIsSentByItsScanCode) {
    const auto scan = static_cast<std::uint16_t>(scanCode('A'));
    auto seen = seenAfter(KeyInput{scan, KEYEVENTF_SCANCODE});
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].message, UINT{WM_KEYDOWN});
    EXPECT_TRUE(isKeyOfScanCode(seen[0].vk, 'A')) << seen[0].vk;
    EXPECT_EQ(seen[0].scan, scan);
    EXPECT_FALSE(seen[0].extended);
    EXPECT_FALSE(seen[0].up);
    EXPECT_TRUE(seen[0].injected);
    EXPECT_EQ(seen[0].extra, 0U);

    seen = seenAfter(KeyInput{scan, KEYEVENTF_SCANCODE | KEYEVENTF_KEYUP});
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].message, UINT{WM_KEYUP});
    EXPECT_EQ(seen[0].scan, scan);
    EXPECT_TRUE(seen[0].up);
}

TEST_F(SendInputTest, TheExtendedFlagTellsAnArrowFromItsKeypadTwin) {
    const auto scan = static_cast<std::uint16_t>(scanCode(VK_LEFT));
    auto seen = seenAfter(KeyInput{scan, KEYEVENTF_SCANCODE | KEYEVENTF_EXTENDEDKEY});
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_TRUE(seen[0].extended);
    EXPECT_TRUE(isKeyOfScanCode(seen[0].vk, VK_LEFT)) << seen[0].vk;
    EXPECT_EQ(seen[0].scan, scan);
    seenAfter(KeyInput{scan, KEYEVENTF_SCANCODE | KEYEVENTF_EXTENDEDKEY | KEYEVENTF_KEYUP});

    seen = seenAfter(KeyInput{scan, KEYEVENTF_SCANCODE});
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_FALSE(seen[0].extended);
    seenAfter(KeyInput{scan, KEYEVENTF_SCANCODE | KEYEVENTF_KEYUP});
}

TEST_F(SendInputTest, EveryRecordIsAnEventOfItsOwn) {
    probe_.mouse.clear();
    for (int i = 0; i < 50; ++i) {
        send(MouseInput{.flags = MOUSEEVENTF_LEFTDOWN});
        send(MouseInput{.flags = MOUSEEVENTF_LEFTUP});
    }
    ASSERT_TRUE(probe_.mouse.await([](const auto& events) { return events.size() >= 100; }));
    const auto seen = probe_.mouse.all();
    ASSERT_EQ(seen.size(), 100U);
    for (std::size_t i = 0; i < seen.size(); ++i) {
        EXPECT_EQ(seen[i].message, i % 2 == 0 ? UINT{WM_LBUTTONDOWN} : UINT{WM_LBUTTONUP});
    }
}

}  // namespace
}  // namespace ravelin::platform
