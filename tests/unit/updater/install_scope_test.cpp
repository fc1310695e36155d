#include "updater/install_scope.h"

#include <gtest/gtest.h>

#include "updater/installer_start.h"

namespace ravelin {
namespace {

const std::wstring here = L"c:\\program files\\app";
const std::wstring elsewhere = L"d:\\app";

std::wstring choose(const InstallRecords& records) {
    return chooseInstallScope(here, records);
}

TEST(InstallScope, AMachineWideInstallationHereIsForAllUsers) {
    EXPECT_EQ(choose({true, here, L""}), L"/ALLUSERS");
    EXPECT_EQ(choose({true, here, here}), L"/ALLUSERS");
}

TEST(InstallScope, AnInstallationHereForTheUserStaysTheUsers) {
    EXPECT_EQ(choose({false, L"", here}), L"/CURRENTUSER");
    EXPECT_EQ(choose({true, elsewhere, here}), L"/CURRENTUSER");
    EXPECT_EQ(choose({true, L"", here}), L"/CURRENTUSER");
}

TEST(InstallScope, WithoutAMatchTheMachinesKeyDecides) {
    EXPECT_EQ(choose({true, elsewhere, elsewhere}), L"/ALLUSERS");
    EXPECT_EQ(choose({true, L"", L""}), L"/ALLUSERS");
    EXPECT_EQ(choose({false, L"", elsewhere}), L"/CURRENTUSER");
    EXPECT_EQ(choose({false, L"", L""}), L"/CURRENTUSER");
}

TEST(InstallScope, AnEmptyLocationIsNowhere) {
    EXPECT_STREQ(chooseInstallScope(L"", {false, L"", L""}), L"/CURRENTUSER");
}

TEST(InstallerStart, TheInstallerIsToldItsScopeAndThatItUpdates) {
    EXPECT_EQ(installerParameters(L"/ALLUSERS"),
              L"/VERYSILENT /SUPPRESSMSGBOXES /NORESTART /SP- /CLOSEAPPLICATIONS "
              L"/NORESTARTAPPLICATIONS /ALLUSERS /RVNUPDATE=1");
    EXPECT_TRUE(installerParameters(L"/CURRENTUSER").ends_with(L" /CURRENTUSER /RVNUPDATE=1"));
}

}  // namespace
}  // namespace ravelin
