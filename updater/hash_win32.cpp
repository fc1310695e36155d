#include <windows.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "support/win32_handles.h"
#include "updater/hash.h"
#include "updater/hex.h"

namespace ravelin {

namespace {

constexpr std::size_t chunkBytes = 65536;

// A digest in the making. A step that fails makes the digest empty.
class Sha256Digest {
  public:
    Sha256Digest() {
        if (BCryptOpenAlgorithmProvider(algorithm_.put(), BCRYPT_SHA256_ALGORITHM, nullptr, 0) != 0)
            return;
        const auto objectBytes = property(BCRYPT_OBJECT_LENGTH);
        const auto digestBytes = property(BCRYPT_HASH_LENGTH);
        if (!objectBytes || !digestBytes) return;
        object_.resize(*objectBytes);
        digest_.resize(*digestBytes);
        intact_ = BCryptCreateHash(algorithm_.get(), hash_.put(), object_.data(), *objectBytes,
                                   nullptr, 0, 0) == 0;
    }

    void add(std::string_view bytes) {
        while (intact_ && !bytes.empty()) {
            const auto piece = static_cast<ULONG>(std::min(bytes.size(), chunkBytes));
            // The function only reads what it is given.
            auto* data = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));
            intact_ = BCryptHashData(hash_.get(), data, piece, 0) == 0;
            bytes.remove_prefix(piece);
        }
    }

    std::string finish() {
        if (!intact_) return {};
        auto* out = reinterpret_cast<PUCHAR>(digest_.data());
        if (BCryptFinishHash(hash_.get(), out, static_cast<ULONG>(digest_.size()), 0) != 0)
            return {};
        return digest_;
    }

  private:
    std::optional<DWORD> property(const wchar_t* name) const {
        DWORD value = 0;
        ULONG written = 0;
        if (BCryptGetProperty(algorithm_.get(), name, reinterpret_cast<PUCHAR>(&value),
                              sizeof value, &written, 0) != 0)
            return std::nullopt;
        return value;
    }

    // Declared in this order so that the hash goes first, then its memory, then the provider.
    CryptAlgorithm algorithm_;
    std::vector<UCHAR> object_;
    CryptHash hash_;
    std::string digest_;
    bool intact_ = false;
};

}  // namespace

std::string Sha256(std::string_view bytes) {
    Sha256Digest digest;
    digest.add(bytes);
    return digest.finish();
}

std::string Sha256Hex(std::string_view bytes) {
    return encodeHex(Sha256(bytes));
}

std::string FileSha256Hex(const std::wstring& path) {
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return {};
    Sha256Digest digest;
    std::string chunk(chunkBytes, '\0');
    for (;;) {
        DWORD read = 0;
        if (!ReadFile(file.get(), chunk.data(), static_cast<DWORD>(chunk.size()), &read, nullptr))
            return {};
        if (read == 0) break;
        digest.add({chunk.data(), read});
    }
    return encodeHex(digest.finish());
}

}  // namespace ravelin
