#include "app/pipe_security_win32.h"

#include <gtest/gtest.h>
// Needs the types of windows.h.
#include <sddl.h>

#include <array>
#include <string>

#include "support/utf.h"

namespace ravelin {
namespace {

std::string ownSid() {
    TokenHandle token;
    OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.put());
    std::array<std::max_align_t, 16> buffer{};
    DWORD size = sizeof buffer;
    GetTokenInformation(token.get(), TokenUser, buffer.data(), size, &size);
    LocalText text;
    ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(buffer.data())->User.Sid, text.put());
    return narrow(text.get());
}

TEST(PipeSecurityDescriptor, GrantsThreeAndIsProtected) {
    const auto descriptor = makePipeSecurity();
    ASSERT_TRUE(descriptor);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    ASSERT_TRUE(GetSecurityDescriptorControl(descriptor.get(), &control, &revision));
    EXPECT_TRUE(control & SE_DACL_PROTECTED);
    EXPECT_EQ(revision, 1U);

    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    PACL acl = nullptr;
    ASSERT_TRUE(GetSecurityDescriptorDacl(descriptor.get(), &present, &acl, &defaulted));
    ASSERT_TRUE(present);
    ASSERT_EQ(acl->AceCount, 3);
    const std::string trustees[] = {"S-1-5-18", "S-1-5-32-544", ownSid()};
    for (DWORD i = 0; i < 3; ++i) {
        void* entry = nullptr;
        ASSERT_TRUE(GetAce(acl, i, &entry));
        auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
        EXPECT_EQ(allowed->Header.AceType, ACCESS_ALLOWED_ACE_TYPE);
        EXPECT_EQ(allowed->Header.AceFlags, 0);
        EXPECT_EQ(allowed->Mask, GENERIC_ALL);
        LocalText text;
        ASSERT_TRUE(ConvertSidToStringSidW(&allowed->SidStart, text.put()));
        EXPECT_EQ(narrow(text.get()), trustees[i]);
    }
}

}  // namespace
}  // namespace ravelin
