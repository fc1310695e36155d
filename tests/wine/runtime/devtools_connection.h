// A DevTools protocol connection: commands with their replies and the events of one attached page,
// over a WebSocket. Everything but the frame handler runs on the thread of the queue.
#pragma once

#include <windows.h>
#include <winhttp.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>

#include "ui_queue.h"

namespace ravelin::browser {

using Json = nlohmann::json;

class DevToolsConnection : public std::enable_shared_from_this<DevToolsConnection> {
  public:
    // A command's outcome; the error's text is empty when it succeeded.
    using Reply = std::function<void(const Json& result, const std::string& error)>;
    using EventHandler = std::function<void(const std::string& method, const Json& parameters)>;

    // Blocks until connected; null on failure, with the reason in the log.
    static std::shared_ptr<DevToolsConnection> open(UiQueue& queue, unsigned short port,
                                                    const std::string& endpoint);
    ~DevToolsConnection();
    DevToolsConnection(const DevToolsConnection&) = delete;
    DevToolsConnection& operator=(const DevToolsConnection&) = delete;

    // Screen frames come on the reading thread, so that decoding never holds up the queue's.
    using FrameHandler = std::function<void(const Json& parameters)>;

    // Sets the handlers and starts reading. Once only.
    void listen(EventHandler events, FrameHandler frames, std::function<void()> lost);
    // Commands go to this session from now on.
    void useSession(const std::string& session) { session_ = session; }
    void send(const std::string& method, Json parameters = Json::object(), Reply reply = {});
    // Runs the work from the message loop, whatever becomes of the connection.
    void later(std::function<void()> work);
    // The same after a delay.
    void after(unsigned milliseconds, std::function<void()> work);
    // No handler and no reply is called any more.
    void close();

  private:
    explicit DevToolsConnection(UiQueue& queue) : queue_(queue) {}
    bool connect(unsigned short port, const std::string& endpoint);
    void readAll();
    bool readMessage(std::string& message);
    void take(Json message);

    UiQueue& queue_;
    HINTERNET internet_ = nullptr;
    HINTERNET server_ = nullptr;
    HINTERNET socket_ = nullptr;
    std::mutex sending_;
    bool closed_ = false;
    std::string session_;
    int lastId_ = 0;
    std::map<int, Reply> replies_;
    EventHandler events_;
    FrameHandler frames_;
    std::function<void()> lost_;
};

}  // namespace ravelin::browser
