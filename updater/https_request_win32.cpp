#include "updater/https_request_win32.h"

#include <algorithm>

#include "support/utf.h"

namespace ravelin {

namespace {

constexpr wchar_t userAgent[] = L"Ravelin-Update/1.0";
constexpr int networkTimeout = 10000;  // milliseconds, for each of resolve, connect, send, receive

struct Address {
    std::wstring host;
    INTERNET_PORT port = 0;
    std::wstring path;  // with any query
};

std::optional<Address> splitAddress(const std::string& url) {
    const std::wstring wide = widen(url);
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof parts;
    // A length without a buffer asks for a pointer into the text.
    parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength =
        static_cast<DWORD>(-1);
    if (!WinHttpCrackUrl(wide.c_str(), static_cast<DWORD>(wide.size()), 0, &parts))
        return std::nullopt;
    if (parts.nScheme != INTERNET_SCHEME_HTTPS) return std::nullopt;

    Address address;
    address.host.assign(parts.lpszHostName, parts.dwHostNameLength);
    address.port = parts.nPort == 0 ? INTERNET_PORT{INTERNET_DEFAULT_HTTPS_PORT} : parts.nPort;
    address.path.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
    if (address.path.empty()) address.path = L"/";
    // A fragment is nothing that a server is asked for.
    const std::wstring extra(parts.lpszExtraInfo, parts.dwExtraInfoLength);
    address.path += extra.substr(0, extra.find(L'#'));
    return address;
}

}  // namespace

std::optional<HttpsRequest> HttpsRequest::get(const std::string& url) {
    const auto address = splitAddress(url);
    if (!address) return std::nullopt;

    HttpsRequest made;
    made.session_.reset(WinHttpOpen(userAgent, WINHTTP_ACCESS_TYPE_DEFAULT_PROXY,
                                    WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS,
                                    WINHTTP_FLAG_ASYNC));
    if (!made.session_) return std::nullopt;
    if (!WinHttpSetTimeouts(made.session_.get(), networkTimeout, networkTimeout, networkTimeout,
                            networkTimeout))
        return std::nullopt;
    made.connection_.reset(
        WinHttpConnect(made.session_.get(), address->host.c_str(), address->port, 0));
    if (!made.connection_) return std::nullopt;
    made.request_.reset(WinHttpOpenRequest(made.connection_.get(), L"GET", address->path.c_str(),
                                           nullptr, WINHTTP_NO_REFERER,
                                           WINHTTP_DEFAULT_ACCEPT_TYPES, WINHTTP_FLAG_SECURE));
    if (!made.request_) return std::nullopt;
    made.exchange_ = HttpExchange::attach(made.request_.get());
    if (!made.exchange_ || !made.send() || made.status() != HTTP_STATUS_OK) return std::nullopt;
    return made;
}

bool HttpsRequest::send() {
    if (!WinHttpSendRequest(request_.get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0,
                            WINHTTP_NO_REQUEST_DATA, 0, 0, 0) ||
        !exchange_->wait())
        return false;
    return WinHttpReceiveResponse(request_.get(), nullptr) && exchange_->wait();
}

DWORD HttpsRequest::status() const {
    DWORD code = 0;
    DWORD size = sizeof code;
    if (!WinHttpQueryHeaders(request_.get(), WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                             WINHTTP_HEADER_NAME_BY_INDEX, &code, &size, WINHTTP_NO_HEADER_INDEX))
        return 0;
    return code;
}

std::string HttpsRequest::contentLength() const {
    wchar_t text[64] = {};
    DWORD size = sizeof text;
    if (!WinHttpQueryHeaders(request_.get(), WINHTTP_QUERY_CONTENT_LENGTH,
                             WINHTTP_HEADER_NAME_BY_INDEX, text, &size, WINHTTP_NO_HEADER_INDEX))
        return {};
    return narrow({text, size / sizeof(wchar_t)});
}

std::optional<DWORD> HttpsRequest::available() {
    if (!WinHttpQueryDataAvailable(request_.get(), nullptr) || !exchange_->wait())
        return std::nullopt;
    return exchange_->bytes();
}

std::optional<std::string_view> HttpsRequest::read(DWORD size) {
    size = std::min(size, HttpExchange::bufferBytes);
    if (!WinHttpReadData(request_.get(), exchange_->buffer(), size, nullptr) || !exchange_->wait())
        return std::nullopt;
    return std::string_view(exchange_->buffer(), exchange_->bytes());
}

}  // namespace ravelin
