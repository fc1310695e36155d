// One HTTPS GET by the system's HTTP client. For the Windows half only.
#pragma once

#include <optional>
#include <string>

#include "support/win32_handles.h"

namespace ravelin {

class HttpsRequest {
  public:
    // Sends a GET for the url and receives the head of the answer; only HTTPS, redirects by the
    // system's policy, 10 s for each wait on the network. Nothing when any of that fails or the
    // status is not 200.
    static std::optional<HttpsRequest> get(const std::string& url);

    // The content-length header as it stands; empty when there is none.
    std::string contentLength() const;

    // How many bytes of the body can be read at once; 0 at its end, nothing on failure.
    std::optional<DWORD> available();
    // Reads at most `size` bytes; nothing on failure.
    std::optional<DWORD> read(char* buffer, DWORD size);

  private:
    HttpsRequest() = default;
    DWORD status() const;

    // Declared in this order so that the request goes first.
    HttpHandle session_;
    HttpHandle connection_;
    HttpHandle request_;
};

}  // namespace ravelin
