#include "updater/stale_folders.h"

namespace ravelin {

namespace {

constexpr std::uint32_t directory = 0x10;
constexpr std::uint32_t reparsePoint = 0x400;

}  // namespace

bool isRealFolder(std::uint32_t attributes) {
    return (attributes & (directory | reparsePoint)) == directory;
}

bool isRealFile(std::uint32_t attributes) {
    return (attributes & (directory | reparsePoint)) == 0;
}

}  // namespace ravelin
