// What is bound into the executable; this test program carries the same resources.
#include <gmock/gmock.h>
#include <windows.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "app/resource_ids.h"
#include "product.h"
#include "support/utf.h"
#include "tests/windows/harness/child_program.h"

namespace ravelin {
namespace {

using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;

std::string_view resource(WORD id, LPCWSTR type) {
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return {};
    const auto* bytes = static_cast<const char*>(LockResource(LoadResource(nullptr, found)));
    return {bytes, SizeofResource(nullptr, found)};
}

// The widths in an icon's directory: 6 bytes, then 14 for each picture, whose first is its width
// with 0 for 256.
std::set<int> iconWidths(WORD id) {
    const std::string_view directory = resource(id, RT_GROUP_ICON);
    std::set<int> widths;
    for (std::size_t at = 6; at + 14 <= directory.size(); at += 14) {
        const auto width = static_cast<unsigned char>(directory[at]);
        widths.insert(width == 0 ? 256 : width);
    }
    return widths;
}

TEST(Resources, TheLargeIconIsDrawnForEverySize) {
    EXPECT_THAT(iconWidths(RAVELIN_ICON_LARGE), IsSupersetOf({16, 20, 24, 32, 40, 48, 64, 256}));
}

TEST(Resources, TheSmallIconIsDrawnForEveryScaleOfATitleBar) {
    EXPECT_THAT(iconWidths(RAVELIN_ICON_SMALL), IsSupersetOf({16, 20, 24, 32}));
}

TEST(Resources, TheManifestLeavesTheDpiToTheProgram) {
    const std::string manifest(resource(1, RT_MANIFEST));
    EXPECT_THAT(manifest, HasSubstr("Microsoft.Windows.Common-Controls"));
    EXPECT_THAT(manifest, HasSubstr("asInvoker"));
    EXPECT_THAT(manifest, Not(HasSubstr("dpiAware")));
}

TEST(Resources, TheVersionIsTheOneThatTheProgramShows) {
    const std::wstring path = test::ownPath();
    DWORD unused = 0;
    std::vector<char> info(GetFileVersionInfoSizeW(path.c_str(), &unused));
    ASSERT_NE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(info.size()), info.data()),
              0);
    for (const wchar_t* name : {L"\\StringFileInfo\\040904B0\\FileVersion",
                                L"\\StringFileInfo\\040904B0\\ProductVersion"}) {
        void* text = nullptr;
        UINT length = 0;
        ASSERT_NE(VerQueryValueW(info.data(), name, &text, &length), 0);
        EXPECT_EQ(narrow(static_cast<const wchar_t*>(text)), product::version);
    }
    const std::string version = product::version;
    void* numbers = nullptr;
    UINT size = 0;
    ASSERT_NE(VerQueryValueW(info.data(), L"\\", &numbers, &size), 0);
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(numbers);
    EXPECT_EQ(std::to_string(HIWORD(fixed->dwFileVersionMS)) + "." +
                  std::to_string(LOWORD(fixed->dwFileVersionMS)) + "." +
                  std::to_string(HIWORD(fixed->dwFileVersionLS)),
              version.substr(0, version.find('-')));
    EXPECT_EQ((fixed->dwFileFlags & VS_FF_PRERELEASE) != 0, version.find('-') != std::string::npos);
    void* copyright = nullptr;
    UINT length = 0;
    ASSERT_NE(VerQueryValueW(info.data(), L"\\StringFileInfo\\040904B0\\LegalCopyright", &copyright,
                             &length),
              0);
    EXPECT_THAT(narrow(static_cast<const wchar_t*>(copyright)),
                HasSubstr("The Ravelin developers. MIT License."));
}

}  // namespace
}  // namespace ravelin
