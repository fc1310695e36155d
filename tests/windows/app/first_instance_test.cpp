#include "app/first_instance_win32.h"

#include <gtest/gtest.h>

#include "app/single_instance.h"
#include "support/win32_handles.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using test::ChildProgram;
using test::TestWindow;

TEST(FirstInstance, IsFoundInAnotherProcessByTheTitleOfAnyVersion) {
    const ChildProgram first(test::ownPath(), L"Ravelin (Studio Version 3.2.1)");
    ASSERT_TRUE(first.showsItsWindow());
    const HWND window = findFirstInstanceWindow();
    EXPECT_EQ(window, FindWindowW(nullptr, L"Ravelin (Studio Version 3.2.1)"));
    EXPECT_NE(window, nullptr);
}

TEST(FirstInstance, IsFoundAsAStudioEdition) {
    const TestWindow window(L"Ravelin Input Studio (Studio Edition)");
    EXPECT_EQ(findFirstInstanceWindow(), window.handle());
}

TEST(FirstInstance, IsTheActivationWindowOnlyWithoutAMainWindow) {
    const TestWindow activation(L"Ravelin - Activate");
    EXPECT_EQ(findFirstInstanceWindow(), activation.handle());
    const TestWindow main(L"Ravelin (Home Version 1.0.1)");
    EXPECT_EQ(findFirstInstanceWindow(), main.handle());
    SetForegroundWindow(activation.handle());
    EXPECT_EQ(findFirstInstanceWindow(), main.handle());
}

TEST(FirstInstance, IsNotAPanelOrAnotherProgram) {
    const TestWindow panel(L"Ravelin - Panel");
    const TestWindow editor(L"notes about Ravelin (Home Version 1.0.1)");
    EXPECT_EQ(findFirstInstanceWindow(), nullptr);
}

TEST(FirstInstance, IsFoundWhileItIsMinimised) {
    const TestWindow window(L"Ravelin (Home Version 1.0.1)", {100, 100, 500, 400},
                            WS_OVERLAPPEDWINDOW);
    window.call([&] { ShowWindow(window.handle(), SW_MINIMIZE); });
    EXPECT_EQ(findFirstInstanceWindow(), window.handle());
}

TEST(SingleInstance, CountsAFirstOneThatMayNotBeOpened) {
    // As of an elevated first instance: nobody may open the mutex.
    ACL nobody{};
    ASSERT_NE(InitializeAcl(&nobody, sizeof nobody, ACL_REVISION), 0);
    SECURITY_DESCRIPTOR descriptor{};
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, &nobody, FALSE);
    SECURITY_ATTRIBUTES attributes{sizeof attributes, &descriptor, FALSE};
    const KernelHandle first(CreateMutexW(&attributes, TRUE, L"Local\\RavelinUI_SingleInstance"));
    ASSERT_TRUE(first);
    const KernelHandle second(CreateMutexW(nullptr, TRUE, L"Local\\RavelinUI_SingleInstance"));
    EXPECT_FALSE(second) << "the first one is not protected";
    EXPECT_TRUE(SingleInstance().alreadyRunning());
}

TEST(SingleInstance, CountsAFirstOneUntilItHasGone) {
    {
        const SingleInstance first;
        EXPECT_FALSE(first.alreadyRunning());
        EXPECT_TRUE(SingleInstance().alreadyRunning());
    }
    EXPECT_FALSE(SingleInstance().alreadyRunning());
}

}  // namespace
}  // namespace ravelin
