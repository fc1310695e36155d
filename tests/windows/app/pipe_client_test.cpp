// The sending end of the pipe, before servers of every kind.
#include "app/pipe_client.h"

#include <gtest/gtest.h>

#include "app/pipe_message.h"
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
