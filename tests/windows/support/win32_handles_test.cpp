#include "support/win32_handles.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/windows/harness/child_program.h"

namespace ravelin {
namespace {

std::vector<int> closed;

void noteClosed(int value) {
    closed.push_back(value);
    SetLastError(ERROR_BUSY);
}

using Noted = Owner<int, noteClosed>;
using NotedFromMinusOne = Owner<int, noteClosed, -1>;

class OwnerTest : public ::testing::Test {
  protected:
    void SetUp() override { closed.clear(); }
};

TEST_F(OwnerTest, ClosesWhatItHoldsAtItsEndAndOnlyOnce) {
    { const Noted owner(7); }
    EXPECT_EQ(closed, (std::vector<int>{7}));
}

TEST_F(OwnerTest, ClosesNothingWhenItHoldsNothing) {
    {
        const Noted byDefault;
        const Noted zero(0);
        const NotedFromMinusOne minusOne(-1);
        EXPECT_FALSE(byDefault);
        EXPECT_FALSE(zero);
        EXPECT_FALSE(minusOne);
    }
    EXPECT_TRUE(closed.empty());
}

TEST_F(OwnerTest, HoldsAndClosesZeroWhereAnotherValueStandsForNothing) {
    {
        const NotedFromMinusOne owner(0);
        EXPECT_TRUE(owner);
    }
    EXPECT_EQ(closed, (std::vector<int>{0}));
}

TEST_F(OwnerTest, ClosesTheOldValueWhenItTakesANewOne) {
    Noted owner(1);
    owner.reset(2);
    EXPECT_EQ(closed, (std::vector<int>{1}));
    EXPECT_EQ(owner.get(), 2);
    owner.reset();
    EXPECT_EQ(closed, (std::vector<int>{1, 2}));
    EXPECT_FALSE(owner);
    owner.reset();
    EXPECT_EQ(closed, (std::vector<int>{1, 2}));
}

void noteHeld(int);
using Watched = Owner<int, noteHeld>;
Watched* watched = nullptr;
std::vector<int> heldWhileClosing;
void noteHeld(int) {
    heldWhileClosing.push_back(watched->get());
}

TEST_F(OwnerTest, HoldsNothingWhileTheOldValueIsClosed) {
    Watched owner(1);
    watched = &owner;
    owner.reset(2);
    owner.reset();
    EXPECT_EQ(heldWhileClosing, (std::vector<int>{0, 0}));
}

TEST_F(OwnerTest, StaysOpenWhenItTakesTheValueThatItHolds) {
    Noted owner(1);
    owner.reset(owner.get());
    EXPECT_TRUE(closed.empty());
    EXPECT_EQ(owner.get(), 1);
}

TEST_F(OwnerTest, KeepsTheLastErrorAcrossAClose) {
    Noted owner(1);
    SetLastError(ERROR_FILE_NOT_FOUND);
    owner.reset();
    EXPECT_EQ(closed.size(), 1U);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(OwnerTest, MovesWithoutClosing) {
    Noted first(1);
    Noted second(std::move(first));
    EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move): a moved owner holds nothing
    EXPECT_EQ(second.get(), 1);
    EXPECT_TRUE(closed.empty());
}

TEST_F(OwnerTest, ClosesItsOwnValueWhenAnotherIsMovedIn) {
    Noted first(1);
    Noted second(2);
    second = std::move(first);
    EXPECT_EQ(closed, (std::vector<int>{2}));
    EXPECT_EQ(second.get(), 1);
}

TEST_F(OwnerTest, SurvivesBeingMovedOntoItself) {
    Noted owner(1);
    Noted& same = owner;
    owner = std::move(same);
    EXPECT_TRUE(closed.empty());
    EXPECT_EQ(owner.get(), 1);
}

TEST_F(OwnerTest, LeavesAReleasedValueOpen) {
    Noted owner(1);
    EXPECT_EQ(owner.release(), 1);
    EXPECT_FALSE(owner);
    owner.reset();
    EXPECT_TRUE(closed.empty());
}

TEST_F(OwnerTest, ClosesTheOldValueBeforeItGivesThePlaceForANewOne) {
    Noted owner(1);
    int* place = owner.put();
    EXPECT_EQ(closed, (std::vector<int>{1}));
    *place = 2;
    EXPECT_EQ(owner.get(), 2);
}

TEST(FileHandle, TakesTheInvalidValueForNothingAndKeepsTheReason) {
    FileHandle file(INVALID_HANDLE_VALUE);
    EXPECT_FALSE(file);
    file.reset(CreateFileW(test::ownPath().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                           OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(file);
    file.reset(CreateFileW(L"no such file", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_FALSE(file);
}

TEST(EventHandle, ClosesTheEvent) {
    HANDLE raw = nullptr;
    {
        const EventHandle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        raw = event.get();
        EXPECT_NE(SetEvent(raw), 0);
    }
    EXPECT_EQ(SetEvent(raw), 0);
}

TEST(WindowClass, CanBeRegisteredAgainOnceItsOwnerIsGone) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"RavelinOwnedClass";
    {
        const WindowClass first(RegisterClassExW(&description));
        EXPECT_TRUE(first);
        EXPECT_FALSE(WindowClass(RegisterClassExW(&description)));
    }
    EXPECT_TRUE(WindowClass(RegisterClassExW(&description)));
}

TEST(WindowHandle, DestroysItsWindow) {
    HWND raw = nullptr;
    {
        const WindowHandle window(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                                  nullptr, nullptr, nullptr));
        raw = window.get();
        EXPECT_NE(IsWindow(raw), 0);
    }
    EXPECT_EQ(IsWindow(raw), 0);
}

}  // namespace
}  // namespace ravelin
