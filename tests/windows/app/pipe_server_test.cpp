// The real server against clients of every kind.
#include "app/pipe_server.h"

#include <gtest/gtest.h>
#include <windows.h>
// Need the types of windows.h.
#include <aclapi.h>
#include <sddl.h>

#include <algorithm>
#include <atomic>
#include <regex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "app/pipe_client.h"
#include "app/pipe_message.h"
#include "input/engine_state.h"
#include "input/platform.h"
#include "input/tool_settings.h"
#include "support/utf.h"
#include "support/win32_handles.h"
#include "tests/windows/harness/child_program.h"
#include "tests/windows/harness/engine_fixture.h"
#include "tests/windows/harness/eventually.h"
#include "tests/windows/harness/foreign_program.h"
#include "tests/windows/harness/pipe_clients.h"

namespace ravelin {
namespace {

using namespace std::string_view_literals;
using test::eventually;
using test::openPipeToWrite;
using test::writeMessage;

class PipeServer : public test::EngineTest {
  protected:
    void SetUp() override {
        EngineTest::SetUp();
        engine.panelHover.exchange(false);
        requests.clickerStart.exchange(0);
        startServer();
    }
    void startServer() {
        engine.running.exchange(true);
        ended_.exchange(false);
        server_ = std::thread([this] {
            runPipeServer();
            ended_.exchange(true);
        });
        ASSERT_TRUE(eventually([] { return bool{openPipeToWrite()}; }));
    }
    void TearDown() override {
        if (server_.joinable()) quit();
        engine.running.exchange(true);
        EngineTest::TearDown();
    }

    // As the program does at its end, while the client holds its end open. False when the server
    // does not notice; it is then freed by closing that end, and by clients that come and go.
    bool quit(FileHandle client = {}) {
        engine.running.exchange(false);
        platform::signal(platform::Event::quit);
        const auto ended = [this] { return ended_.load(); };
        const bool noticed = eventually(ended);
        client.reset();
        while (!ended()) {
            openPipeToWrite();
            Sleep(2);
        }
        server_.join();
        return noticed;
    }

    static bool hovers() {
        return eventually([] { return engine.panelHover.load(); });
    }
    // A message that was sent before this one has been dealt with when this has taken effect.
    static void expectThatTheServerServes() {
        engine.panelHover.exchange(false);
        sendToMainProcess("panelHover", "1");
        EXPECT_TRUE(hovers());
    }

    std::thread server_;
    std::atomic<bool> ended_{false};
};

TEST_F(PipeServer, ServesThisExecutable) {
    sendToMainProcess("updateSpammer", "1,2,3,4,1,1,0,7,1");
    EXPECT_TRUE(eventually([] { return toolSettings.locMode.load() == 1; }));
    EXPECT_EQ(toolSettings.sh.load(), 1);
    EXPECT_FALSE(ipcUnavailable.load());
}

TEST_F(PipeServer, ServesAnotherProcessOfThisExecutable) {
    EXPECT_EQ(test::sendFromAnotherProcess(test::ownPath(), L"panelHover|1"), 0U);
    EXPECT_TRUE(hovers());
}

TEST_F(PipeServer, NeverReadsFromACopyInAnotherFolder) {
    const test::ForeignProgram foreign;
    ASSERT_NE(test::sendFromAnotherProcess(foreign.path(), L"startSpammer|"), MAXDWORD);
    expectThatTheServerServes();
    EXPECT_EQ(requests.clickerStart.load(), 0);
}

TEST_F(PipeServer, IsNotHeldUpByOtherProgramsThatNeverCloseTheirEnd) {
    const test::ForeignProgram foreign;
    const test::PipeHolderProgram first(foreign.path());
    ASSERT_TRUE(first.holds());
    const test::PipeHolderProgram second(foreign.path());
    ASSERT_TRUE(second.holds());
    expectThatTheServerServes();
}

TEST_F(PipeServer, ServesAgainWhenAClientThatNeverClosedHasDied) {
    {
        const test::PipeHolderProgram silent(test::ownPath());
        ASSERT_TRUE(silent.holds());
    }
    expectThatTheServerServes();
}

TEST_F(PipeServer, AConnectionCarriesAnyNumberOfMessages) {
    const auto pipe = openPipeToWrite();
    for (int i = 1; i <= 100; ++i)
        ASSERT_TRUE(writeMessage(pipe, "updateKeySpam|0,0,0," + std::to_string(i) + ",1,10"));
    EXPECT_TRUE(eventually([] { return toolSettings.ksms.load() == 100; }));
}

TEST_F(PipeServer, MessagesWithoutSenseAreDroppedAndTheConnectionLives) {
    const auto pipe = openPipeToWrite();
    const std::string_view messages[] = {"startSpammer",
                                         "|",
                                         "\0\0\0"sv,
                                         "startSpammer\0|"sv,
                                         "nothing|1",
                                         "updateSpammer|1,2,x,4,0,0,1,10,0",
                                         "updateSpammer|99999999999,0,0,0,0,0,0,0,0",
                                         "removeKeySpamTarget|x",
                                         "\xFF\xFE|\x80"};
    for (const auto message : messages)
        ASSERT_TRUE(writeMessage(pipe, message));
    ASSERT_TRUE(writeMessage(pipe, "panelHover|1"));
    EXPECT_TRUE(hovers());
    EXPECT_EQ(requests.clickerStart.load(), 0);
}

TEST_F(PipeServer, AnEmptyMessageIsDropped) {
    {
        const auto pipe = openPipeToWrite();
        writeMessage(pipe, "");
    }
    expectThatTheServerServes();
}

TEST_F(PipeServer, AMessageIsAWriteAndHalvesAreNotPutTogether) {
    const auto pipe = openPipeToWrite();
    ASSERT_TRUE(writeMessage(pipe, "startSp"));
    ASSERT_TRUE(writeMessage(pipe, "ammer|"));
    ASSERT_TRUE(writeMessage(pipe, "panelHover|1"));
    EXPECT_TRUE(hovers());
    EXPECT_EQ(requests.clickerStart.load(), 0);
}

TEST_F(PipeServer, AnOversizedMessageIsCutAndItsRestIsNoMessage) {
    const auto pipe = openPipeToWrite();
    // The value ends with the byte 511; what stands behind would start the clicker.
    std::string message = "updateKeySpam|0,0,0,77,1,";
    message.resize(pipeMessageLimit, '1');
    message.replace(message.size() - 3, 3, ",12");
    ASSERT_TRUE(writeMessage(pipe, message + "startSpammer|"));
    for (const std::size_t size : {512U, 1024U, 70'000U})
        ASSERT_TRUE(writeMessage(pipe, "updateKeySpam|" + std::string(size, '0')));
    ASSERT_TRUE(writeMessage(pipe, "panelHover|1"));
    EXPECT_TRUE(hovers());
    EXPECT_EQ(requests.clickerStart.load(), 0);
}

TEST_F(PipeServer, SurvivesTenThousandQuickConnections) {
    for (int i = 0; i < 10'000; ++i) {
        const auto pipe = openPipeToWrite();
        ASSERT_TRUE(pipe) << i;
        if (i % 3 == 0) writeMessage(pipe, "panelHover|");
    }
    expectThatTheServerServes();
}

TEST_F(PipeServer, OneClientAfterAnotherIsServedWhenManyComeAtOnce) {
    std::vector<std::thread> clients;
    std::atomic<int> sent{0};
    for (int c = 0; c < 4; ++c)
        clients.emplace_back([&sent] {
            for (int i = 0; i < 50; ++i) {
                const auto pipe = openPipeToWrite();
                if (pipe && writeMessage(pipe, "setKeySpamChordMode|1")) ++sent;
            }
        });
    for (auto& client : clients)
        client.join();
    EXPECT_EQ(sent.load(), 200);
    EXPECT_TRUE(eventually([] { return keySpamTargets.chord.load(); }));
    keySpamTargets.chord.exchange(false);
}

// Wherever the server is by then: about to wait for a client, to read from it, or within the wait.
class EndOfPipeServer : public PipeServer {
  protected:
    // The client is made anew for every moment; nothing stands for no client.
    template <class MakeClient>
    void expectThatItEndsAtOnce(MakeClient makeClient) {
        for (const DWORD moment : {0U, 1U, 5U, 20U, 50U}) {
            FileHandle client = makeClient();
            Sleep(moment);
            ASSERT_TRUE(quit(std::move(client))) << "after " << moment << " ms";
            ASSERT_TRUE(platform::createEvents());
            startServer();
        }
    }
};

TEST_F(EndOfPipeServer, ComesAtOnceWithoutAClient) {
    expectThatItEndsAtOnce([] { return FileHandle(); });
}

TEST_F(EndOfPipeServer, ComesAtOnceWithAClientThatNeverCloses) {
    expectThatItEndsAtOnce([] {
        auto silent = openPipeToWrite();
        engine.panelHover.exchange(false);
        EXPECT_TRUE(writeMessage(silent, "panelHover|1"));
        EXPECT_TRUE(hovers());
        return silent;
    });
}

TEST_F(EndOfPipeServer, ComesAtOnceWithAClientThatNeverSaysAnything) {
    expectThatItEndsAtOnce([] {
        auto silent = openPipeToWrite();
        EXPECT_TRUE(silent);
        return silent;
    });
}

// The access list of the pipe as a client sees it.
std::string accessListOf(const FileHandle& pipe) {
    LocalSecurityDescriptor descriptor;
    LocalText text;
    if (GetSecurityInfo(pipe.get(), SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                        nullptr, nullptr, descriptor.put()) != ERROR_SUCCESS ||
        ConvertSecurityDescriptorToStringSecurityDescriptorW(
            descriptor.get(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, text.put(), nullptr) == 0)
        return "none";
    // A system may tell what the generic right stands for.
    return std::regex_replace(narrow(text.get()), std::regex(";FA;"), ";GA;");
}

TEST_F(PipeServer, GivesEveryInstanceOfThePipeItsDescriptor) {
    for (int instance = 0; instance < 3; ++instance) {
        const auto pipe = openPipeToWrite();
        ASSERT_TRUE(pipe);
        const auto list = accessListOf(pipe);
        EXPECT_TRUE(list.starts_with("D:P(A;;GA;;;SY)(A;;GA;;;BA)(A;;GA;;;S-1-")) << list;
        EXPECT_EQ(std::count(list.begin(), list.end(), '('), 3) << list;
    }
}

TEST_F(PipeServer, NobodyReadsFromThePipe) {
    const FileHandle reader(
        CreateFileW(pipeName, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_FALSE(reader);
}

TEST_F(PipeServer, WithoutAServerAMessageIsDropped) {
    quit();
    sendToMainProcess("panelHover", "1");
    EXPECT_FALSE(engine.panelHover.load());
}

}  // namespace
}  // namespace ravelin
