#include "updater/https_request_win32.h"
#include "updater/https_win32.h"
#include "updater/update_check.h"

namespace ravelin {

bool HttpsGetSmall(const std::string& url, std::string& body) {
    body.clear();
    auto request = HttpsRequest::get(url);
    if (!request) return false;
    for (;;) {
        const auto announced = request->available();
        if (!announced) return false;
        if (*announced == 0) return true;
        if (*announced > manifestCap - body.size()) return false;
        const auto piece = request->read(*announced);
        if (!piece) return false;
        if (piece->empty()) return true;
        body += *piece;
    }
}

}  // namespace ravelin
