#include "app/window_opening_win32.h"

#include <gtest/gtest.h>

#include <optional>

#include "app/windows_win32.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::hasFocus;
using test::TestWindow;
using Activation = WindowOpening::Activation;

class OpeningWindow : public ::testing::Test {
  protected:
    // The window is made hidden, and another has the foreground.
    void SetUp() override {
        window_.call([this] { ShowWindow(window_.handle(), SW_HIDE); });
        front_.call([this] { bringToForeground(front_.handle()); });
        ASSERT_TRUE(hasFocus(front_.handle()));
    }
    void TearDown() override {
        window_.call([this] { opening_.reset(); });
    }
    void open(Activation activation) {
        window_.call([=, this] { opening_.emplace(window_.handle(), activation); });
    }
    // As the view library does.
    void show() {
        window_.call([this] {
            ShowWindow(window_.handle(), SW_SHOW);
            SetFocus(window_.handle());
        });
    }

    TestWindow front_{L"Front", {600, 100, 900, 400}};
    TestWindow window_{L"Opening", {100, 100, 500, 400}, WS_OVERLAPPEDWINDOW};
    std::optional<WindowOpening> opening_;
};

TEST_F(OpeningWindow, TakesTheForegroundWhenItIsShown) {
    open(Activation::allowed);
    show();
    EXPECT_TRUE(hasFocus(window_.handle()));
}

TEST_F(OpeningWindow, LeavesTheForegroundWhereItIsWhenActivationIsRefused) {
    open(Activation::refused);
    show();
    EXPECT_NE(IsWindowVisible(window_.handle()), 0);
    EXPECT_TRUE(hasFocus(front_.handle()));
}

TEST_F(OpeningWindow, IsActivatedAgainWhenThatIsAllowed) {
    open(Activation::refused);
    show();
    window_.call([this] {
        opening_->allowActivation();
        bringToForeground(window_.handle());
    });
    EXPECT_TRUE(hasFocus(window_.handle()));
}

TEST_F(OpeningWindow, IsActivatedAgainWhenItsOpeningIsOver) {
    open(Activation::refused);
    window_.call([this] { opening_.reset(); });
    show();
    EXPECT_TRUE(hasFocus(window_.handle()));
}

TEST_F(OpeningWindow, RefusesNoOtherWindowOfItsThread) {
    open(Activation::refused);
    window_.call([this] {
        const HWND box = CreateWindowExW(0, L"STATIC", L"Box", WS_POPUP, 0, 0, 100, 100, nullptr,
                                         nullptr, nullptr, nullptr);
        ShowWindow(box, SW_SHOW);
        bringToForeground(box);
        EXPECT_EQ(GetForegroundWindow(), box);
        DestroyWindow(box);
    });
}

TEST(MissingOpeningWindow, IsIgnored) {
    WindowOpening opening(nullptr, Activation::refused);
    opening.revealSoon();
    opening.reveal();
    opening.allowActivation();
}

}  // namespace
}  // namespace ravelin
