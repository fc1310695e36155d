#include "updater/install_scope.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "product.h"
#include "support/utf.h"
#include "support/win32_handles.h"

namespace ravelin {
namespace {

TEST(ComparablePath, HasNoTrailingSeparatorsAndNoUpperCase) {
    EXPECT_EQ(comparablePath(L"C:\\Program Files\\App"), L"c:\\program files\\app");
    EXPECT_EQ(comparablePath(L"c:\\program files\\app\\"), L"c:\\program files\\app");
    EXPECT_EQ(comparablePath(L"C:\\App/\\//"), L"c:\\app");
    EXPECT_EQ(comparablePath(L"C:\\\u00C4PP\\\u0416"), L"c:\\\u00E4pp\\\u0436");
    EXPECT_EQ(comparablePath(L"C:\\"), L"c:");
    EXPECT_EQ(comparablePath(L"\\/"), L"");
    EXPECT_EQ(comparablePath(L""), L"");
}

// The two records of the setup program, put back as they were.
class InstallScopeInRegistry : public testing::Test {
  protected:
    InstallScopeInRegistry() { removeBoth(); }
    ~InstallScopeInRegistry() override { removeBoth(); }

    static void record(HKEY root, REGSAM view, const std::wstring& location, DWORD type = REG_SZ) {
        const RegistryKey key = create(root, view);
        const auto bytes = static_cast<DWORD>((location.size() + 1) * sizeof(wchar_t));
        RegSetValueExW(key.get(), L"InstallLocation", 0, type,
                       reinterpret_cast<const BYTE*>(location.c_str()), bytes);
    }
    static RegistryKey create(HKEY root, REGSAM view) {
        RegistryKey key;
        RegCreateKeyExW(root, path().c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, key.put(),
                        nullptr);
        return key;
    }

    static std::wstring ownFolder() {
        wchar_t file[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, file, MAX_PATH);
        const std::wstring full = file;
        return full.substr(0, full.find_last_of(L'\\'));
    }

    static constexpr REGSAM machineView = KEY_WOW64_64KEY;

  private:
    static std::wstring path() { return widen(product::uninstallKey); }
    static void removeBoth() {
        RegDeleteKeyExW(HKEY_LOCAL_MACHINE, path().c_str(), machineView, 0);
        RegDeleteKeyExW(HKEY_CURRENT_USER, path().c_str(), 0, 0);
    }
};

TEST_F(InstallScopeInRegistry, WithoutRecordsItIsTheUsers) {
    EXPECT_STREQ(ChooseInstallScope(), L"/CURRENTUSER");
}

TEST_F(InstallScopeInRegistry, AMachineWideRecordOfThisFolderIsForAllUsers) {
    record(HKEY_LOCAL_MACHINE, machineView, ownFolder() + L"\\");
    record(HKEY_CURRENT_USER, 0, ownFolder());
    EXPECT_STREQ(ChooseInstallScope(), L"/ALLUSERS");
}

TEST_F(InstallScopeInRegistry, ARecordInAnotherCaseIsTheSameFolder) {
    std::wstring folder = ownFolder();
    CharUpperBuffW(folder.data(), static_cast<DWORD>(folder.size()));
    record(HKEY_LOCAL_MACHINE, machineView, L"C:\\elsewhere");
    record(HKEY_CURRENT_USER, 0, folder);
    EXPECT_STREQ(ChooseInstallScope(), L"/CURRENTUSER");
}

TEST_F(InstallScopeInRegistry, AMachineWideKeyWithoutAMatchIsForAllUsers) {
    create(HKEY_LOCAL_MACHINE, machineView);
    record(HKEY_CURRENT_USER, 0, L"C:\\elsewhere");
    EXPECT_STREQ(ChooseInstallScope(), L"/ALLUSERS");
}

TEST_F(InstallScopeInRegistry, AValueOfAnotherTypeCountsAsAbsent) {
    create(HKEY_LOCAL_MACHINE, machineView);
    record(HKEY_CURRENT_USER, 0, ownFolder(), REG_EXPAND_SZ);
    EXPECT_STREQ(ChooseInstallScope(), L"/ALLUSERS");
}

TEST_F(InstallScopeInRegistry, AValueThatIsTooLongCountsAsAbsent) {
    create(HKEY_LOCAL_MACHINE, machineView);
    record(HKEY_CURRENT_USER, 0, ownFolder() + std::wstring(600, L'\\'));
    EXPECT_STREQ(ChooseInstallScope(), L"/ALLUSERS");
}

TEST_F(InstallScopeInRegistry, ALongValueThatFitsIsRead) {
    create(HKEY_LOCAL_MACHINE, machineView);
    const std::wstring folder = ownFolder();
    record(HKEY_CURRENT_USER, 0, folder + std::wstring(518 - folder.size(), L'\\'));
    EXPECT_STREQ(ChooseInstallScope(), L"/CURRENTUSER");
}

}  // namespace
}  // namespace ravelin
