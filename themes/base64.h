// Base64 with the standard alphabet (RFC 4648), padded, without line breaks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace ravelin {

// Not empty, a multiple of four characters, all of the alphabet but for at most two "=" at the end.
// Every such text can be decoded; unused bits before the padding may have any value.
bool isWellFormedBase64(std::string_view text);

// The number of bytes that a well-formed text stands for, at least 1.
std::size_t decodedBase64Size(std::string_view text);

// Decodes the beginning of a well-formed text into `bytes`, as much as there is or as fits, and
// gives the part that was written.
std::span<const std::uint8_t> decodeBase64(std::string_view text, std::span<std::uint8_t> bytes);

}  // namespace ravelin
