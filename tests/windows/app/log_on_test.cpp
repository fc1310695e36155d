#include "app/log_on.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "support/win32_handles.h"

namespace ravelin {
namespace {

constexpr wchar_t runKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t valueName[] = L"Ravelin";

struct Value {
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
};

// The entry in the user's registry, left as it was found.
class LaunchAtLogOn : public ::testing::Test {
  protected:
    LaunchAtLogOn() {
        RegCreateKeyExW(HKEY_CURRENT_USER, runKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr,
                        key_.put(), nullptr);
        before_ = value();
    }
    ~LaunchAtLogOn() override {
        if (before_) {
            setValue(*before_);
        } else {
            removeValue();
        }
    }

    std::optional<Value> value() const {
        Value value;
        DWORD size = 0;
        if (RegQueryValueExW(key_.get(), valueName, nullptr, &value.type, nullptr, &size) !=
            ERROR_SUCCESS)
            return std::nullopt;
        value.data.resize(size);
        RegQueryValueExW(key_.get(), valueName, nullptr, nullptr, value.data.data(), &size);
        return value;
    }
    void setValue(const Value& value) const {
        RegSetValueExW(key_.get(), valueName, 0, value.type, value.data.data(),
                       static_cast<DWORD>(value.data.size()));
    }
    void removeValue() const { RegDeleteValueW(key_.get(), valueName); }

    static Value textValue(const std::wstring& text, DWORD type = REG_SZ) {
        Value value{type, std::vector<BYTE>((text.size() + 1) * sizeof(wchar_t))};
        std::copy_n(reinterpret_cast<const BYTE*>(text.c_str()), value.data.size(),
                    value.data.begin());
        return value;
    }
    static Value expected() {
        std::array<wchar_t, 1024> path{};
        GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        return textValue(L'"' + std::wstring(path.data()) + L'"');
    }
    void expectEntry() const {
        const auto entry = value();
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->type, static_cast<DWORD>(REG_SZ));
        EXPECT_EQ(entry->data, expected().data);
    }

  private:
    RegistryKey key_;
    std::optional<Value> before_;
};

TEST_F(LaunchAtLogOn, IsTheQuotedPathWithItsTerminatingZero) {
    removeValue();
    setLaunchAtLogOn(true);
    expectEntry();
    setLaunchAtLogOn(true);
    expectEntry();
}

TEST_F(LaunchAtLogOn, ReplacesThePathOfAMovedExecutable) {
    setValue(
        textValue(L"\"C:\\a much longer place than before\\" + std::wstring(500, L'x') + L'"'));
    setLaunchAtLogOn(true);
    expectEntry();
    setValue(textValue(L"%TEMP%\\Ravelin.exe", REG_EXPAND_SZ));
    setLaunchAtLogOn(true);
    expectEntry();
}

TEST_F(LaunchAtLogOn, IsRemovedWhoeverMadeIt) {
    setLaunchAtLogOn(true);
    setLaunchAtLogOn(false);
    EXPECT_FALSE(value());
    setValue(Value{REG_BINARY, {1, 2, 3}});
    setLaunchAtLogOn(false);
    EXPECT_FALSE(value());
}

TEST_F(LaunchAtLogOn, MayBeMissingAlready) {
    removeValue();
    setLaunchAtLogOn(false);
    EXPECT_FALSE(value());
}

TEST_F(LaunchAtLogOn, LeavesTheOtherEntriesAlone) {
    RegistryKey key;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, runKey, 0, KEY_READ | KEY_WRITE, key.put()),
              ERROR_SUCCESS);
    constexpr wchar_t other[] = L"Ravelin test entry";
    const auto data = textValue(L"other.exe").data;
    RegSetValueExW(key.get(), other, 0, REG_SZ, data.data(), static_cast<DWORD>(data.size()));
    setLaunchAtLogOn(true);
    setLaunchAtLogOn(false);
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(key.get(), other, nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, data.size());
    RegDeleteValueW(key.get(), other);
}

// Another place stands in for the user's registry while this lives.
class EmptyUserRegistry {
  public:
    EmptyUserRegistry() {
        RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_VOLATILE,
                        KEY_READ | KEY_WRITE, nullptr, key_.put(), nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, key_.get());
    }
    EmptyUserRegistry(const EmptyUserRegistry&) = delete;
    EmptyUserRegistry& operator=(const EmptyUserRegistry&) = delete;
    ~EmptyUserRegistry() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, path);
    }

    // Whether anything was made in it.
    bool empty() const {
        DWORD keys = 1;
        DWORD values = 1;
        RegQueryInfoKeyW(key_.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                         nullptr, nullptr, nullptr, nullptr);
        return keys == 0 && values == 0;
    }

  private:
    static constexpr wchar_t path[] = L"Software\\Ravelin test registry";
    RegistryKey key_;
};

TEST_F(LaunchAtLogOn, DoesNothingWithoutTheKey) {
    removeValue();
    {
        const EmptyUserRegistry registry;
        setLaunchAtLogOn(true);
        setLaunchAtLogOn(false);
        EXPECT_TRUE(registry.empty());
    }
    EXPECT_FALSE(value());
}

}  // namespace
}  // namespace ravelin
