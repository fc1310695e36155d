#include "updater/admin_only_security_win32.h"

#include <gtest/gtest.h>
#include <sddl.h>

#include <string>

#include "support/win32_handles.h"
#include "updater/stale_folders_win32.h"

namespace ravelin {
namespace {

std::wstring textOf(PSID sid) {
    LocalText text;
    return ConvertSidToStringSidW(sid, text.put()) ? text.get() : L"";
}

PACL accessList(AdminOnlySecurity& security) {
    BOOL present = FALSE;
    BOOL defaulted = TRUE;
    PACL list = nullptr;
    EXPECT_TRUE(GetSecurityDescriptorDacl(security.attributes().lpSecurityDescriptor, &present,
                                          &list, &defaulted));
    EXPECT_TRUE(present);
    EXPECT_FALSE(defaulted);
    return list;
}

TEST(AdminOnlySecurity, IsASelfContainedDescriptorThatIsNotInherited) {
    AdminOnlySecurity security;
    ASSERT_TRUE(security);
    const SECURITY_ATTRIBUTES& attributes = security.attributes();
    EXPECT_EQ(attributes.nLength, sizeof(SECURITY_ATTRIBUTES));
    EXPECT_FALSE(attributes.bInheritHandle);
    EXPECT_TRUE(IsValidSecurityDescriptor(attributes.lpSecurityDescriptor));
    DWORD revision = 0;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    EXPECT_TRUE(GetSecurityDescriptorControl(attributes.lpSecurityDescriptor, &control, &revision));
    EXPECT_EQ(revision, 1U);
}

TEST(AdminOnlySecurity, GivesFullAccessToAdministratorsThenTheSystemAndNobodyElse) {
    AdminOnlySecurity security;
    ASSERT_TRUE(security);
    const PACL list = accessList(security);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->AclRevision, 2);
    ASSERT_EQ(list->AceCount, 2);
    const wchar_t* const owners[] = {L"S-1-5-32-544", L"S-1-5-18"};
    for (DWORD i = 0; i < 2; ++i) {
        void* entry = nullptr;
        ASSERT_TRUE(GetAce(list, i, &entry));
        auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
        EXPECT_EQ(allowed->Header.AceType, ACCESS_ALLOWED_ACE_TYPE);
        EXPECT_EQ(allowed->Header.AceFlags, 0);
        EXPECT_EQ(allowed->Mask, 0x1F01FFU);
        EXPECT_EQ(textOf(&allowed->SidStart), owners[i]);
    }
}

TEST(AdminOnlySecurity, SetsNeitherOwnerNorGroup) {
    AdminOnlySecurity security;
    PSID sid = nullptr;
    BOOL defaulted = FALSE;
    EXPECT_TRUE(
        GetSecurityDescriptorOwner(security.attributes().lpSecurityDescriptor, &sid, &defaulted));
    EXPECT_EQ(sid, nullptr);
    EXPECT_TRUE(
        GetSecurityDescriptorGroup(security.attributes().lpSecurityDescriptor, &sid, &defaulted));
    EXPECT_EQ(sid, nullptr);
}

TEST(AdminOnlySecurity, OnlyTheBuiltInGroupIsTheAdministrators) {
    const auto isAdministrators = [](const wchar_t* text) {
        LocalSid sid;
        return ConvertStringSidToSidW(text, sid.put()) && isAdministratorsGroup(sid.get());
    };
    EXPECT_TRUE(isAdministrators(L"S-1-5-32-544"));
    EXPECT_FALSE(isAdministrators(L"S-1-5-18"));
    EXPECT_FALSE(isAdministrators(L"S-1-5-32-545"));
    EXPECT_FALSE(isAdministrators(L"S-1-5-21-1-2-3-500"));
    EXPECT_FALSE(isAdministrators(L"S-1-5-32"));
}

}  // namespace
}  // namespace ravelin
