// Waits for the steps of an asynchronous HTTP request. For the Windows half only.
//
// The client's own time limits do not hold everywhere, and a blocking call could not be left when
// the program ends; so the requests run asynchronously and whoever made one waits here, step by
// step.
#pragma once

#include <atomic>
#include <memory>
#include <vector>

#include "support/win32_handles.h"

namespace ravelin {

class HttpExchange {
  public:
    static constexpr DWORD bufferBytes = 65536;

    // Ties a new exchange to the request, which keeps it alive until its handle is closed for good.
    // Null when that fails.
    static std::shared_ptr<HttpExchange> attach(HINTERNET request);

    // Waits until the step that was begun is done and gives whether it succeeded. A step also fails
    // when the network shows no sign of life for longer than its time limits allow, or when the
    // program ends; the request must then be closed.
    bool wait();

    // Of the last step that succeeded: the bytes that are available or were read.
    DWORD bytes() const { return bytes_; }
    // Where steps read to.
    char* buffer() { return buffer_.data(); }

    HttpExchange() = default;
    HttpExchange(const HttpExchange&) = delete;
    HttpExchange& operator=(const HttpExchange&) = delete;

  private:
    static void CALLBACK onStatus(HINTERNET request, DWORD_PTR context, DWORD status, void* info,
                                  DWORD infoBytes) noexcept;
    void finish(bool succeeded, DWORD bytes);

    EventHandle done_;
    std::vector<char> buffer_ = std::vector<char>(bufferBytes);
    std::atomic<ULONGLONG> lastSign_{0};  // of life, in milliseconds
    std::atomic<DWORD> bytes_{0};
    std::atomic<bool> succeeded_{false};
};

}  // namespace ravelin
