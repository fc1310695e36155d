// SHA-256 by the system's cryptography. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace ravelin {

// The raw digest, 32 bytes; empty on failure.
std::string Sha256(std::string_view bytes);

// The digest in lower-case hexadecimal; empty on failure.
std::string Sha256Hex(std::string_view bytes);
std::string FileSha256Hex(const std::wstring& path);

}  // namespace ravelin
