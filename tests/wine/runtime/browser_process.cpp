#include "browser_process.h"

#include <charconv>
#include <string_view>
#include <thread>

#include "log.h"
#include "module.h"
#include "wide_text.h"

namespace ravelin::browser {
namespace {

// Generous: a cold start on a busy machine reads some hundred megabytes.
constexpr unsigned startLimit = 60000;
// The keeper itself is a small script.
constexpr unsigned connectLimit = 20000;

bool startsWith(std::string_view text, std::string_view head) {
    return text.substr(0, head.size()) == head;
}

}  // namespace

bool BrowserProcess::launchKeeper(double scale) const {
    const std::string script = toUnixPath(moduleFolder() + L"\\browser_keeper.sh");
    if (script.empty()) {
        logLine("this runtime works under Wine only");
        return false;
    }
    const std::wstring launcher = moduleFolder() + L"\\run_below_wine.exe";
    std::wstring command = L'"' + launcher + L'"' +
                           toWide(" /bin/bash \"" + script + "\" " + std::to_string(line_->port()) +
                                  " " + std::to_string(scale));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(launcher.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &startup, &process) == 0) {
        logLine("cannot start " + toUtf8(command) + ": error " + std::to_string(GetLastError()));
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

HRESULT BrowserProcess::awaitEndpoint() {
    constexpr std::string_view listening = "DevTools listening on ws://127.0.0.1:";
    while (const auto line = line_->readLine(startLimit)) {
        if (startsWith(*line, listening)) {
            const char* const end = line->data() + line->size();
            const auto number = std::from_chars(line->data() + listening.size(), end, port_);
            endpoint_.assign(number.ptr, end);
            return S_OK;
        }
        logLine("browser: " + *line);
        if (startsWith(*line, "profile ")) profile_ = line->substr(8);
        if (startsWith(*line, "missing ")) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
        if (startsWith(*line, "ended ")) return HRESULT_FROM_WIN32(ERROR_PROCESS_ABORTED);
    }
    logLine("the browser said nothing of its DevTools port");
    return HRESULT_FROM_WIN32(ERROR_TIMEOUT);
}

void BrowserProcess::logOutput(const std::shared_ptr<LifeLine>& line) {
    while (const auto text = line->readLine(INFINITE)) {
        logLine("browser: " + *text);
        // The keeper cleans up as soon as the connection is closed.
        if (startsWith(*text, "ended ")) line->close();
    }
}

HRESULT BrowserProcess::start(double scale, std::shared_ptr<BrowserProcess>& started) {
    const std::shared_ptr<BrowserProcess> made(new BrowserProcess);
    if (made->line_->port() == 0) {
        logLine("cannot listen on a loopback port");
        return E_FAIL;
    }
    if (!made->launchKeeper(scale)) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    if (!made->line_->accept(connectLimit)) {
        logLine("the browser's keeper did not connect");
        return HRESULT_FROM_WIN32(ERROR_TIMEOUT);
    }
    const HRESULT result = made->awaitEndpoint();
    if (FAILED(result)) return result;
    std::thread(logOutput, made->line_).detach();
    started = made;
    return S_OK;
}

}  // namespace ravelin::browser
