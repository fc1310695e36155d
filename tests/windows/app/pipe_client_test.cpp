// The sending end of the pipe, before servers of every kind.
#include "app/pipe_client.h"

#include <gtest/gtest.h>

#include <array>
#include <future>
#include <set>

#include "app/pipe_message.h"
#include "app/pipe_server.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/foreign_program.h"
#include "tests/windows/harness/pipe_servers.h"

namespace ravelin {
namespace {

using test::PipeServerProgram;

TEST(PipeClient, WritesToAServerOfThisExecutable) {
    PipeServerProgram server(test::ownPath());
    ASSERT_TRUE(server.listens());
    sendToMainProcess("updateSpammer", "1,2,3");
    EXPECT_EQ(server.received(), "updateSpammer|1,2,3");
}

TEST(PipeClient, WritesNothingToAServerOfAnotherExecutable) {
    const test::ForeignProgram foreign;
    PipeServerProgram server(foreign.path());
    ASSERT_TRUE(server.listens());
    sendToMainProcess("updateSpammer", "1,2,3");
    EXPECT_EQ(server.received(), "");
}

TEST(PipeClient, WritesAMessageThatIsTooLongUpToTheLimit) {
    PipeServerProgram server(test::ownPath());
    ASSERT_TRUE(server.listens());
    sendToMainProcess("updateKeySpam", std::string(2000, '7'));
    EXPECT_EQ(server.received().size(), pipeMessageLimit);
}

TEST(PipeClient, GoesOnThoughTheServerStandsStill) {
    const FileHandle pipe(CreateNamedPipeW(pipeName, PIPE_ACCESS_INBOUND,
                                           PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT, 1,
                                           0, 4096, 0, nullptr));
    ASSERT_TRUE(pipe);
    // Nobody reads until this has returned.
    sendToMainProcess("updateSpammer", "1,2,3");
    EXPECT_TRUE(ConnectNamedPipe(pipe.get(), nullptr) != 0 ||
                GetLastError() == ERROR_PIPE_CONNECTED);
    std::array<char, 100> message{};
    DWORD length = 0;
    EXPECT_NE(ReadFile(pipe.get(), message.data(), message.size(), &length, nullptr), 0);
    EXPECT_EQ(std::string(message.data(), length), "updateSpammer|1,2,3");
}

// Nobody hears of a lost message: the call comes back, no window opens, and a server that comes
// later gets the messages of its own time only.
class LostMessage : public testing::Test {
  protected:
    static void sendInVain() {
        const auto windows = windowsOfThisProcess();
        auto sent = std::async(std::launch::async, [] { sendToMainProcess("startSpammer", ""); });
        EXPECT_EQ(sent.wait_for(test::patience), std::future_status::ready) << "it waits";
        EXPECT_EQ(windowsOfThisProcess(), windows);
        closeWindowsBut(windows);
        EXPECT_NO_THROW(sent.get());
    }
    static void expectThatOnlyTheNextOneArrives() {
        PipeServerProgram server(test::ownPath());
        ASSERT_TRUE(server.listens());
        sendToMainProcess("stopSpammer", "");
        EXPECT_EQ(server.received(), "stopSpammer|");
    }

  private:
    static std::set<HWND> windowsOfThisProcess() {
        std::set<HWND> windows;
        EnumWindows(
            [](HWND window, LPARAM found) {
                DWORD process = 0;
                GetWindowThreadProcessId(window, &process);
                if (process == GetCurrentProcessId() && IsWindowVisible(window) != 0)
                    reinterpret_cast<std::set<HWND>*>(found)->insert(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&windows));
        return windows;
    }
    // So that a message box holds up no other test.
    static void closeWindowsBut(const std::set<HWND>& old) {
        for (const HWND window : windowsOfThisProcess())
            if (!old.contains(window)) PostMessageW(window, WM_CLOSE, 0, 0);
    }
};

TEST_F(LostMessage, IsLostSilentlyWithoutAServer) {
    sendInVain();
    expectThatOnlyTheNextOneArrives();
}

TEST_F(LostMessage, IsLostSilentlyWhenTheServerEnds) {
    {
        const PipeServerProgram server(test::ownPath());
        ASSERT_TRUE(server.listens());
    }
    sendInVain();
    expectThatOnlyTheNextOneArrives();
}

}  // namespace
}  // namespace ravelin
