#include "app/view_limit.h"

namespace ravelin {

std::uint32_t viewLimitMs() {
    return 60'000;
}

}  // namespace ravelin
