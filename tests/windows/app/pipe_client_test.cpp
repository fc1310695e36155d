// The sending end of the pipe, before servers of every kind.
#include "app/pipe_client.h"

#include <gtest/gtest.h>

#include <array>

#include "app/pipe_message.h"
#include "app/pipe_server.h"
#include "tests/windows/harness/child_program.h"
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

TEST(PipeClient, LosesItsMessageSilentlyWithoutAServer) {
    sendToMainProcess("startSpammer", "");
}

TEST(PipeClient, LosesItsMessageSilentlyWhenTheServerEnds) {
    {
        const PipeServerProgram server(test::ownPath());
        ASSERT_TRUE(server.listens());
    }
    sendToMainProcess("startSpammer", "");
}

}  // namespace
}  // namespace ravelin
