// The escapes of JSON strings.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ravelin {

// Appends what the escape at the front of the text stands for, as UTF-8, and returns how many
// characters it took; 0 when no valid escape is there. A surrogate pair is one escape; either half
// alone becomes U+FFFD.
std::size_t resolveJsonEscape(std::string_view text, std::string& out);

}  // namespace ravelin
