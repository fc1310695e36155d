// The wait for a view that never comes, short enough for a test.
#include "app/view_limit.h"

namespace ravelin {

std::uint32_t viewLimitMs() {
    return 6'000;
}

}  // namespace ravelin
