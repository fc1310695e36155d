#include "life_line.h"

namespace ravelin::browser {
namespace {

bool readable(SOCKET socket, unsigned milliseconds) {
    fd_set set;
    FD_ZERO(&set);
    set.fd_count = 1;
    set.fd_array[0] = socket;
    timeval limit{static_cast<long>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000 * 1000)};
    return select(0, &set, nullptr, nullptr, milliseconds == INFINITE ? nullptr : &limit) == 1;
}

}  // namespace

LifeLine::LifeLine() {
    WSADATA data{};
    if (WSAStartup(MAKEWORD(2, 2), &data) != 0) return;
    listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    int size = sizeof address;
    if (bind(listener_, any, size) == 0 && listen(listener_, 1) == 0 &&
        getsockname(listener_, any, &size) == 0) {
        port_ = ntohs(address.sin_port);
    }
}

LifeLine::~LifeLine() {
    if (listener_ != INVALID_SOCKET) closesocket(listener_);
    if (line_ != INVALID_SOCKET) closesocket(line_);
}

bool LifeLine::accept(unsigned milliseconds) {
    if (readable(listener_, milliseconds)) line_ = ::accept(listener_, nullptr, nullptr);
    return line_ != INVALID_SOCKET;
}

std::optional<std::string> LifeLine::readLine(unsigned milliseconds) {
    for (;;) {
        const std::size_t end = received_.find('\n');
        if (end != std::string::npos) {
            std::string line = received_.substr(0, end);
            received_.erase(0, end + 1);
            return line;
        }
        char piece[4096];
        if (!readable(line_, milliseconds)) return std::nullopt;
        const int size = recv(line_, piece, sizeof piece, 0);
        if (size <= 0) return std::nullopt;
        received_.append(piece, static_cast<std::size_t>(size));
    }
}

bool LifeLine::send(const std::string& line) {
    const std::string text = line + "\n";
    return ::send(line_, text.data(), static_cast<int>(text.size()), 0) ==
           static_cast<int>(text.size());
}

void LifeLine::close() {
    shutdown(line_, SD_BOTH);
}

}  // namespace ravelin::browser
