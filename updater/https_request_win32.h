// One HTTPS GET by the system's HTTP client. For the Windows half only.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "support/win32_handles.h"
#include "updater/http_exchange_win32.h"

namespace ravelin {

class HttpsRequest {
  public:
    // Sends a GET for the url and receives the head of the answer; only HTTPS, redirects by the
    // system's policy, 10 s for each wait on the network. Nothing when any of that fails, the
    // status is not 200, or the program ends meanwhile.
    static std::optional<HttpsRequest> get(const std::string& url);

    // The content-length header as it stands; empty when there is none.
    std::string contentLength() const;

    // How many bytes of the body can be read at once; 0 at its end, nothing on failure.
    std::optional<DWORD> available();
    // Reads at most `size` bytes, and at most 65536; they stand until the next read. Nothing on
    // failure.
    std::optional<std::string_view> read(DWORD size);

  private:
    HttpsRequest() = default;
    bool send();
    DWORD status() const;

    // Declared in this order so that the request goes first.
    HttpHandle session_;
    HttpHandle connection_;
    HttpHandle request_;
    std::shared_ptr<HttpExchange> exchange_;
};

}  // namespace ravelin
