#include "updater/http_exchange_win32.h"

#include "input/engine_state.h"

namespace ravelin {

namespace {

// A little more than the client's own limits of 10 s for each thing that it does.
constexpr ULONGLONG longestSilence = 11000;  // milliseconds
constexpr DWORD lookAround = 100;            // milliseconds between looks at the running flag

using Holder = std::shared_ptr<HttpExchange>;

}  // namespace

std::shared_ptr<HttpExchange> HttpExchange::attach(HINTERNET request) {
    auto exchange = std::make_shared<HttpExchange>();
    exchange->done_.reset(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    exchange->lastSign_ = GetTickCount64();
    if (!exchange->done_) return nullptr;

    // Freed by the last call of onStatus for this request.
    auto holder = std::make_unique<Holder>(exchange);
    auto context = reinterpret_cast<DWORD_PTR>(holder.get());
    if (!WinHttpSetOption(request, WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context) ||
        WinHttpSetStatusCallback(request, onStatus, WINHTTP_CALLBACK_FLAG_ALL_NOTIFICATIONS, 0) ==
            WINHTTP_INVALID_STATUS_CALLBACK)
        return nullptr;
    static_cast<void>(holder.release());
    return exchange;
}

bool HttpExchange::wait() {
    lastSign_ = GetTickCount64();
    while (WaitForSingleObject(done_.get(), lookAround) != WAIT_OBJECT_0) {
        if (!engine.running || GetTickCount64() - lastSign_ > longestSilence) return false;
    }
    return succeeded_;
}

void HttpExchange::finish(bool succeeded, DWORD bytes) {
    bytes_ = bytes;
    succeeded_ = succeeded;
    SetEvent(done_.get());
}

void HttpExchange::onStatus(HINTERNET, DWORD_PTR context, DWORD status, void* info,
                            DWORD infoBytes) noexcept {
    auto* holder = reinterpret_cast<Holder*>(context);
    if (holder == nullptr) return;
    HttpExchange& exchange = **holder;
    exchange.lastSign_ = GetTickCount64();
    switch (status) {
        case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
        case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
            exchange.finish(true, 0);
            break;
        case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
            exchange.finish(true, *static_cast<DWORD*>(info));
            break;
        case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
            exchange.finish(true, infoBytes);
            break;
        case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
            exchange.finish(false, 0);
            break;
        case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING:
            delete holder;
            break;
        default:
            break;
    }
}

}  // namespace ravelin
