// A window with a handler before its own procedure.
#include "app/window_subclass_win32.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::TestWindow;

constexpr UINT question = WM_APP + 1;
constexpr UINT remark = WM_APP + 2;

class WindowSubclass : public ::testing::Test {
  protected:
    bool subclass(MessageHandler handler) {
        bool done = false;
        window_.call([&] { done = subclassWindow(window_.handle(), std::move(handler)); });
        return done;
    }
    void takeBack() {
        window_.call([this] { unsubclassWindow(window_.handle()); });
    }
    void send(UINT message) const { SendMessageW(window_.handle(), message, 0, 0); }

    TestWindow window_{L"Subclassed"};
};

TEST_F(WindowSubclass, EndsTheMessagesThatItsHandlerTakesAndNoOthers) {
    EXPECT_TRUE(subclass([](const WindowMessage& message) { return message.id == question; }));
    send(question);
    send(remark);
    EXPECT_FALSE(window_.received(question));
    EXPECT_TRUE(window_.received(remark));
}

TEST_F(WindowSubclass, TellsItsHandlerTheValuesOfAMessage) {
    WindowMessage seen;
    EXPECT_TRUE(subclass([&seen](const WindowMessage& message) {
        if (message.id == question) seen = message;
        return false;
    }));
    SendMessageW(window_.handle(), question, 12, -34);
    EXPECT_EQ(seen.wParam, 12U);
    EXPECT_EQ(seen.lParam, -34);
}

TEST_F(WindowSubclass, HandsOnWhatItsHandlerFailsAt) {
    EXPECT_TRUE(subclass([](const WindowMessage& message) -> bool {
        if (message.id == question) throw std::runtime_error("no answer");
        return false;
    }));
    send(question);
    EXPECT_TRUE(window_.received(question));
}

TEST_F(WindowSubclass, LeavesTheWindowAsItWasWhenItIsTakenBack) {
    const auto before = GetWindowLongPtrW(window_.handle(), GWLP_WNDPROC);
    EXPECT_TRUE(subclass([](const WindowMessage& message) { return message.id == question; }));
    EXPECT_NE(GetWindowLongPtrW(window_.handle(), GWLP_WNDPROC), before);
    takeBack();
    takeBack();
    EXPECT_EQ(GetWindowLongPtrW(window_.handle(), GWLP_WNDPROC), before);
    send(question);
    EXPECT_TRUE(window_.received(question));
}

TEST_F(WindowSubclass, IsTheOnlyOneOfItsWindowUntilItIsTakenBack) {
    EXPECT_TRUE(subclass([](const WindowMessage& message) { return message.id == question; }));
    EXPECT_FALSE(subclass([](const WindowMessage&) { return true; }));
    send(remark);
    EXPECT_TRUE(window_.received(remark));
    takeBack();
    EXPECT_TRUE(subclass([](const WindowMessage&) { return false; }));
}

TEST_F(WindowSubclass, GoesWithItsWindowAfterTheLastMessage) {
    const auto seen = std::make_shared<UINT>(0);
    EXPECT_TRUE(subclass([seen](const WindowMessage& message) {
        *seen = message.id;
        return false;
    }));
    EXPECT_EQ(seen.use_count(), 2);
    window_.destroy();
    EXPECT_EQ(*seen, static_cast<UINT>(WM_NCDESTROY));
    EXPECT_EQ(seen.use_count(), 1);
    EXPECT_TRUE(window_.received(WM_NCDESTROY));
}

TEST(MissingWindow, IsNotSubclassed) {
    EXPECT_FALSE(subclassWindow(nullptr, [](const WindowMessage&) { return true; }));
    unsubclassWindow(nullptr);
}

}  // namespace
}  // namespace ravelin
