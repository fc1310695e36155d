// Program versions as update manifests name them: MAJOR.MINOR.PATCH, a pre-release with "-beta.N"
// behind it. Every number has one to five decimal digits.
#pragma once

#include <cstdint>
#include <string_view>

namespace ravelin {

struct Version {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t patch = 0;
    bool isPre = false;
    std::uint32_t preNum = 0;  // of a pre-release
    bool valid = false;
};

// What is not exactly such a version gives one that is not valid.
Version ParseVersion(std::string_view text);

// Whether the offered version is newer than the own one; both must be valid. A release is newer
// than the pre-releases of the same three numbers.
bool isNewer(const Version& offered, const Version& own);

}  // namespace ravelin
