#include "devtools_connection.h"

#include <array>
#include <thread>

#include "log.h"
#include "wide_text.h"

namespace ravelin::browser {
namespace {

constexpr int sendLimit = 10000;  // milliseconds

bool failed(const char* step) {
    logLine(std::string("DevTools: ") + step + " failed, error " + std::to_string(GetLastError()));
    return false;
}

}  // namespace

std::shared_ptr<DevToolsConnection> DevToolsConnection::open(UiQueue& queue, unsigned short port,
                                                             const std::string& endpoint) {
    std::shared_ptr<DevToolsConnection> made(new DevToolsConnection(queue));
    return made->connect(port, endpoint) ? made : nullptr;
}

DevToolsConnection::~DevToolsConnection() {
    for (HINTERNET handle : {socket_, server_, internet_}) {
        if (handle != nullptr) WinHttpCloseHandle(handle);
    }
}

bool DevToolsConnection::connect(unsigned short port, const std::string& endpoint) {
    internet_ = WinHttpOpen(nullptr, WINHTTP_ACCESS_TYPE_NO_PROXY, WINHTTP_NO_PROXY_NAME,
                            WINHTTP_NO_PROXY_BYPASS, 0);
    if (internet_ == nullptr) return failed("WinHttpOpen");
    server_ = WinHttpConnect(internet_, L"127.0.0.1", port, 0);
    if (server_ == nullptr) return failed("WinHttpConnect");
    HINTERNET request = WinHttpOpenRequest(server_, L"GET", toWide(endpoint).c_str(), nullptr,
                                           WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES, 0);
    if (request == nullptr) return failed("WinHttpOpenRequest");
    // The page may be silent for as long as it likes, but a browser that takes nothing any more
    // must not hold up the host for good.
    WinHttpSetTimeouts(request, 0, 0, sendLimit, 0);
    if (WinHttpSetOption(request, WINHTTP_OPTION_UPGRADE_TO_WEB_SOCKET, nullptr, 0) != 0 &&
        WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, nullptr, 0, 0, 0) != 0 &&
        WinHttpReceiveResponse(request, nullptr) != 0) {
        socket_ = WinHttpWebSocketCompleteUpgrade(request, 0);
    }
    if (socket_ == nullptr) failed("the WebSocket upgrade");
    WinHttpCloseHandle(request);
    return socket_ != nullptr;
}

void DevToolsConnection::listen(EventHandler events, FrameHandler frames,
                                std::function<void()> lost) {
    events_ = std::move(events);
    frames_ = std::move(frames);
    lost_ = std::move(lost);
    std::thread([self = shared_from_this()] { self->readAll(); }).detach();
}

void DevToolsConnection::send(const std::string& method, Json parameters, Reply reply) {
    if (closed_) return;
    Json message = {{"id", ++lastId_}, {"method", method}, {"params", std::move(parameters)}};
    if (!session_.empty()) message["sessionId"] = session_;
    if (reply) replies_[lastId_] = std::move(reply);
    std::string text = message.dump(-1, ' ', false, Json::error_handler_t::replace);
    const std::scoped_lock lock(sending_);
    if (WinHttpWebSocketSend(socket_, WINHTTP_WEB_SOCKET_UTF8_MESSAGE_BUFFER_TYPE, text.data(),
                             static_cast<DWORD>(text.size())) != ERROR_SUCCESS) {
        logLine("DevTools: " + method + " could not be sent");
    }
}

void DevToolsConnection::later(std::function<void()> work) {
    queue_.post(std::move(work));
}

void DevToolsConnection::after(unsigned milliseconds, std::function<void()> work) {
    queue_.postAfter(milliseconds, std::move(work));
}

void DevToolsConnection::close() {
    closed_ = true;
    replies_.clear();
}

bool DevToolsConnection::readMessage(std::string& message) {
    static constexpr DWORD pieceSize = 1 << 18;
    message.clear();
    for (;;) {
        const std::size_t before = message.size();
        message.resize(before + pieceSize);
        DWORD size = 0;
        WINHTTP_WEB_SOCKET_BUFFER_TYPE type{};
        if (WinHttpWebSocketReceive(socket_, message.data() + before, pieceSize, &size, &type) !=
                ERROR_SUCCESS ||
            type == WINHTTP_WEB_SOCKET_CLOSE_BUFFER_TYPE) {
            return false;
        }
        message.resize(before + size);
        if (type == WINHTTP_WEB_SOCKET_UTF8_MESSAGE_BUFFER_TYPE) return true;
    }
}

void DevToolsConnection::readAll() {
    std::string text;
    while (readMessage(text)) {
        Json message = Json::parse(text, nullptr, false);
        if (!message.is_object()) continue;
        if (message.contains("method") && message["method"] == "Page.screencastFrame") {
            frames_(message["params"]);
            continue;
        }
        queue_.post([self = shared_from_this(), message = std::move(message)]() mutable {
            self->take(std::move(message));
        });
    }
    queue_.post([self = shared_from_this()] {
        if (self->closed_) return;
        self->closed_ = true;
        // First, while the waiting replies still keep their owners.
        self->lost_();
        self->close();
    });
}

void DevToolsConnection::take(Json message) {
    if (closed_) return;
    const auto id = message.find("id");
    if (id == message.end()) {
        if (message.value("sessionId", "") == session_) {
            events_(message.value("method", ""), message["params"]);
        }
        return;
    }
    std::string error;
    if (message.contains("error")) error = message["error"].value("message", "unknown");
    const auto found = replies_.find(id->get<int>());
    if (found == replies_.end()) {
        if (!error.empty()) logLine("DevTools: " + error);
        return;
    }
    const Reply reply = std::move(found->second);
    replies_.erase(found);
    reply(message["result"], error);
}

}  // namespace ravelin::browser
