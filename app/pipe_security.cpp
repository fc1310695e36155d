#include "app/pipe_security.h"

namespace ravelin {

std::string pipeSecurityText(std::string_view userSid, std::uint32_t integrityLevel) {
    std::string text = "D:P(A;;GA;;;SY)(A;;GA;;;BA)(A;;GA;;;";
    text += userSid;
    text += ')';
    if (integrityLevel >= highIntegrity) text += "S:(ML;;NW;;;HI)";
    return text;
}

}  // namespace ravelin
