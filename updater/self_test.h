// Proves, without any network, that a build accepts exactly the manifests that it should.
//
// The vectors file has one JSON object a line. A line with "line":"key" brings the test key ("hex":
// a key blob) for the cases behind it; one with "line":"case" a manifest's members, the tier and
// version of the build that judges it ("expectedTier", "ownVersion"), a "name" and the verdict to
// "expect". Other lines are ignored.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "updater/manifest.h"

namespace ravelin {

// Imports a key blob; an empty verifier means that it is none.
using KeyImporter = std::function<ManifestVerifier(std::string_view blob)>;

// Fills `report` with a line for every key, case and host check, each ending in a line feed, and
// returns whether all of them passed.
bool runUpdateSelfTest(const std::string& vectorsPath, const KeyImporter& importKey,
                       std::string& report);

// The same for the text of a vectors file.
bool checkUpdateVectors(std::string_view vectors, const KeyImporter& importKey,
                        std::string& report);

// The same with the system's cryptography.
bool RunUpdateSelfTest(const std::string& vectorsPath, std::string& report);

}  // namespace ravelin
