// The loopback connection between this process and the keeper of one browser. It breaks by itself
// when this process ends, in whatever way.
#pragma once

#include <winsock2.h>

#include <optional>
#include <string>

namespace ravelin::browser {

class LifeLine {
  public:
    // Listens on a free loopback port.
    LifeLine();
    ~LifeLine();
    LifeLine(const LifeLine&) = delete;
    LifeLine& operator=(const LifeLine&) = delete;

    // The port to connect to; 0 when listening failed.
    unsigned short port() const { return port_; }
    // Waits for the one connection.
    bool accept(unsigned milliseconds);
    // The next line without its end; nothing when the connection broke or the time is over.
    std::optional<std::string> readLine(unsigned milliseconds);
    bool send(const std::string& line);
    // Breaks the connection; a reader on another thread returns.
    void close();

  private:
    SOCKET listener_ = INVALID_SOCKET;
    SOCKET line_ = INVALID_SOCKET;
    unsigned short port_ = 0;
    std::string received_;
};

}  // namespace ravelin::browser
