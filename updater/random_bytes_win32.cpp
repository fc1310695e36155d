#include <windows.h>

#include "support/win32_handles.h"
#include "updater/random_bytes.h"

namespace ravelin {

std::string randomBytes(std::size_t count) {
    CryptAlgorithm generator;
    if (BCryptOpenAlgorithmProvider(generator.put(), BCRYPT_RNG_ALGORITHM, nullptr, 0) != 0)
        return {};
    std::string bytes(count, '\0');
    auto* out = reinterpret_cast<PUCHAR>(bytes.data());
    if (BCryptGenRandom(generator.get(), out, static_cast<ULONG>(count), 0) != 0) return {};
    return bytes;
}

}  // namespace ravelin
