// Keys and buttons of a real keyboard and mouse, with another program's window in front.
#include <gtest/gtest.h>

#include <algorithm>

#include "input/capture.h"
#include "input/engine_state.h"
#include "input/tool_settings.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/hook_probe.h"
#include "tests/windows/harness/real_input_fixture.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::eventually;
using test::HookProbe;
using test::realInput;
using test::RealInputTest;
using test::SeenMessage;
using test::TestWindow;

class RealHotkeys : public RealInputTest {
  protected:
    void SetUp() override {
        RealInputTest::SetUp();
        if (IsSkipped()) return;
        probe_.emplace();
        window_.emplace(L"Receiver");
    }
    void TearDown() override {
        window_.reset();
        probe_.reset();
        RealInputTest::TearDown();
    }

    // The messages of one key that reached the window in front.
    std::vector<UINT> keyMessages(WPARAM vk) const {
        std::vector<UINT> result;
        for (const SeenMessage& seen : window_->messages.all()) {
            const bool key = seen.message >= WM_KEYFIRST && seen.message <= WM_SYSKEYUP;
            if (key && seen.wParam == vk && seen.message != WM_CHAR) result.push_back(seen.message);
        }
        return result;
    }
    // The key z comes after what a test sends: once it has arrived, so has all before it.
    bool awaitMarker() {
        return window_->messages.awaitOne(
            [](const SeenMessage& seen) { return seen.message == WM_KEYUP && seen.wParam == 'Z'; });
    }
    std::size_t presses(DWORD vk) const {
        const auto seen = probe_->keys.all();
        return static_cast<std::size_t>(std::count_if(seen.begin(), seen.end(), [=](const auto& k) {
            return k.vk == vk && k.message == WM_KEYDOWN;
        }));
    }
    bool awaitPresses(DWORD vk, std::size_t count) {
        return probe_->keys.await([=](const std::vector<test::SeenKey>& seen) {
            return static_cast<std::size_t>(
                       std::count_if(seen.begin(), seen.end(), [=](const auto& k) {
                           return k.vk == vk && k.message == WM_KEYDOWN;
                       })) >= count;
        });
    }

    std::optional<HookProbe> probe_;  // before the hooks of the input thread
    std::optional<TestWindow> window_;
};

TEST_F(RealHotkeys, AHotkeyRaisesItsRequestAndNothingOfItReachesTheProgramInFront) {
    realInput(window_->handle(), "key F6 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_TRUE(probe_->awaitKey(WM_KEYUP, VK_F6));
    for (const auto& key : probe_->keys.all())
        EXPECT_FALSE(key.injected);
    EXPECT_EQ(requests.clickerToggle, 1);
    EXPECT_EQ(keyMessages(VK_F6), std::vector<UINT>{});
}

TEST_F(RealHotkeys, EveryHotkeyRaisesItsOwnRequest) {
    const struct {
        const char* key;
        Requests::Flag* request;
    } cases[] = {
        {"key F8", &requests.recToggle},
        {"key F7", &requests.playToggle},
        {"key F6", &requests.clickerToggle},
        {"key F9", &requests.keySpamToggle},
    };
    for (const auto& one : cases) {
        realInput(window_->handle(), one.key);
        EXPECT_TRUE(eventually([&] { return one.request->load() == 1; })) << one.key;
        *one.request = 0;
    }
}

TEST_F(RealHotkeys, AnOrdinaryKeyPassesWithItsPressAndRelease) {
    realInput(window_->handle(), "key F5 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_EQ(keyMessages(VK_F5), (std::vector<UINT>{WM_KEYDOWN, WM_KEYUP}));
    EXPECT_EQ(requests.clickerToggle, 0);
}

TEST_F(RealHotkeys, AHeldHotkeyFiresOnceAndItsRepeatsStayHidden) {
    realInput(window_->handle(), "keydown F6");
    ASSERT_TRUE(eventually([] { return requests.clickerToggle == 1; }));
    requests.clickerToggle = 0;
    ASSERT_TRUE(awaitPresses(VK_F6, 4));
    EXPECT_EQ(requests.clickerToggle, 0);
    realInput(window_->handle(), "keyup F6 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_EQ(requests.clickerToggle, 0);
    EXPECT_EQ(keyMessages(VK_F6), std::vector<UINT>{});
}

TEST_F(RealHotkeys, AHotkeyFiresAgainAfterItsRelease) {
    realInput(window_->handle(), "key F6");
    ASSERT_TRUE(eventually([] { return requests.clickerToggle == 1; }));
    requests.clickerToggle = 0;
    realInput(window_->handle(), "key F6");
    EXPECT_TRUE(eventually([] { return requests.clickerToggle == 1; }));
}

TEST_F(RealHotkeys, AHeldOrdinaryKeyRepeatsInTheProgramInFront) {
    realInput(window_->handle(), "keydown x");
    ASSERT_TRUE(awaitPresses('X', 3));
    realInput(window_->handle(), "keyup x key z");
    ASSERT_TRUE(awaitMarker());
    const auto seen = keyMessages('X');
    ASSERT_GE(seen.size(), 4U);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), UINT{WM_KEYUP}), 1);
    EXPECT_EQ(seen.back(), UINT{WM_KEYUP});
}

TEST_F(RealHotkeys, AHotkeyWithAltIsAHotkeyToo) {
    realInput(window_->handle(), "key alt+F6 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_EQ(requests.clickerToggle, 1);
    EXPECT_EQ(keyMessages(VK_F6), std::vector<UINT>{});
}

TEST_F(RealHotkeys, WhileLockedOnlyTheUnlockKeyIsHidden) {
    hotkeys.unlocked = false;
    realInput(window_->handle(), "key F6 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_EQ(keyMessages(VK_F6), (std::vector<UINT>{WM_KEYDOWN, WM_KEYUP}));
    EXPECT_EQ(requests.clickerToggle, 0);
    window_->messages.clear();

    realInput(window_->handle(), "key F10 key F6 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_TRUE(hotkeys.unlocked);
    EXPECT_EQ(requests.clickerToggle, 1);
    EXPECT_EQ(keyMessages(VK_F10), std::vector<UINT>{});
    EXPECT_EQ(keyMessages(VK_F6), std::vector<UINT>{});
    window_->messages.clear();

    realInput(window_->handle(), "key F10 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_FALSE(hotkeys.unlocked);
    EXPECT_EQ(requests.clickerStop, 1);
    EXPECT_EQ(requests.keySpamStop, 1);
    EXPECT_EQ(requests.stopPlayback, 1);
}

TEST_F(RealHotkeys, SwitchedOffTheyPass) {
    hotkeys.enabled = false;
    realInput(window_->handle(), "key F6 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_EQ(keyMessages(VK_F6), (std::vector<UINT>{WM_KEYDOWN, WM_KEYUP}));
    EXPECT_EQ(requests.clickerToggle, 0);
}

TEST_F(RealHotkeys, AnArmedSlotCapturesTheNextKeyAndHidesItsPress) {
    capture.slot = CaptureSlot::rec;
    realInput(window_->handle(), "keydown F2");
    ASSERT_TRUE(eventually([] { return capture.code == VK_F2; }));
    capture.slot = CaptureSlot::none;
    capture.code = 0;
    realInput(window_->handle(), "keyup F2 key z");
    ASSERT_TRUE(awaitMarker());
    EXPECT_EQ(keyMessages(VK_F2).front(), keyMessages(VK_F2).back());
    EXPECT_EQ(keyMessages(VK_F2).back(), UINT{WM_KEYUP});
}

class RealButtons : public RealHotkeys {
  protected:
    std::vector<UINT> buttonMessages() const {
        std::vector<UINT> result;
        for (const SeenMessage& seen : window_->messages.all()) {
            if (seen.message > WM_MOUSEMOVE && seen.message <= WM_XBUTTONDBLCLK &&
                seen.message != WM_MOUSEWHEEL) {
                result.push_back(seen.message);
            }
        }
        return result;
    }
};

TEST_F(RealButtons, AButtonThatIsAHotkeyIsHiddenAndOthersPass) {
    const struct {
        const char* clicks;
        std::uint32_t code;
    } cases[] = {
        {"click 3", VK_RBUTTON},
        {"click 2", VK_MBUTTON},
        {"click 8", VK_XBUTTON1},
        {"click 9", VK_XBUTTON2},
    };
    for (const auto& one : cases) {
        window_->messages.clear();
        hotkeys.autoClicker = one.code;
        realInput(std::string("mousemove 250 250 ") + one.clicks + " click 1");
        ASSERT_TRUE(window_->awaitMessage(WM_LBUTTONUP)) << one.clicks;
        EXPECT_EQ(buttonMessages(), (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP}))
            << one.clicks;
        EXPECT_EQ(requests.clickerToggle, 1) << one.clicks;
        requests.clickerToggle = 0;
    }
}

TEST_F(RealButtons, TheTwoSideButtonsAreDifferentHotkeys) {
    hotkeys.autoClicker = VK_XBUTTON1;
    hotkeys.keySpam = VK_XBUTTON2;
    realInput("mousemove 250 250 click 9 click 1");
    ASSERT_TRUE(window_->awaitMessage(WM_LBUTTONUP));
    EXPECT_EQ(requests.clickerToggle, 0);
    EXPECT_EQ(requests.keySpamToggle, 1);
}

TEST_F(RealButtons, TheLeftButtonCanBeAHotkey) {
    hotkeys.play = VK_LBUTTON;
    realInput("mousemove 250 250 click 1 click 3");
    ASSERT_TRUE(window_->awaitMessage(WM_RBUTTONUP));
    EXPECT_EQ(buttonMessages(), (std::vector<UINT>{WM_RBUTTONDOWN, WM_RBUTTONUP}));
    EXPECT_EQ(requests.playToggle, 1);
}

TEST_F(RealButtons, APickedPointIsStoredAndItsPressHidden) {
    pickLocation();
    realInput("mousemove 250 300 click 1 click 3");
    ASSERT_TRUE(window_->awaitMessage(WM_RBUTTONUP));
    EXPECT_FALSE(window_->received(WM_LBUTTONDOWN));
    EXPECT_TRUE(window_->received(WM_RBUTTONDOWN));
    EXPECT_EQ(toolSettings.fixedX, 250);
    EXPECT_EQ(toolSettings.fixedY, 300);
    EXPECT_EQ(toolSettings.locMode, 1);
    EXPECT_FALSE(capture.pickingLocation);
}

TEST_F(RealButtons, ARightPressCancelsThePicker) {
    pickLocation();
    realInput("mousemove 250 300 click 3 click 1");
    ASSERT_TRUE(window_->awaitMessage(WM_LBUTTONUP));
    EXPECT_FALSE(window_->received(WM_RBUTTONDOWN));
    EXPECT_TRUE(window_->received(WM_LBUTTONDOWN));
    EXPECT_EQ(toolSettings.fixedX, 0);
    EXPECT_EQ(toolSettings.locMode, 0);
    EXPECT_FALSE(capture.pickingLocation);
}

TEST_F(RealButtons, AnArmedSlotCapturesAButtonAndHidesItsPress) {
    capture.slot = CaptureSlot::rec;
    realInput("mousemove 250 300 click 2");
    ASSERT_TRUE(eventually([] { return capture.code == VK_MBUTTON; }));
    ASSERT_TRUE(window_->awaitMessage(WM_MBUTTONUP));
    EXPECT_FALSE(window_->received(WM_MBUTTONDOWN));
}

TEST_F(RealButtons, TheLeftButtonNeverBecomesTheUnlockKeyAndReachesTheProgram) {
    capture.slot = CaptureSlot::unlock;
    realInput("mousemove 250 300 click 1");
    ASSERT_TRUE(window_->awaitMessage(WM_LBUTTONUP));
    EXPECT_TRUE(window_->received(WM_LBUTTONDOWN));
    EXPECT_EQ(capture.code, 0U);
    EXPECT_EQ(capture.slot.load(), CaptureSlot::unlock);
}

}  // namespace
}  // namespace ravelin
