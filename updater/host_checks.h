// The addresses by which a build proves its list of allowed download hosts.
#pragma once

#include <string>
#include <vector>

namespace ravelin {

struct HostCheck {
    std::string url;
    bool allowed = false;
    std::string label;
};

const std::vector<HostCheck>& hostChecks();

}  // namespace ravelin
