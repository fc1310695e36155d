// Reads single members out of a small JSON object without parsing it: enough for manifests, where
// everything that is read is covered by a signature or decides on its own.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// The string behind the first `"key"` anywhere in the text: after it the next ":", after that the
// next double quote, then everything up to the next unescaped double quote. JSON's escapes are
// resolved, \u to UTF-8; a backslash that begins none of them stands as it is. Empty when the key
// is missing or the value is not closed.
std::string stringMember(std::string_view text, std::string_view key);

// Whether "true" stands behind the first `"key"`, the next ":" and blanks.
bool booleanMember(std::string_view text, std::string_view key);

}  // namespace ravelin
