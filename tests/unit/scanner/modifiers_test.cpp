#include "scanner/modifiers.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace MacroScan {
namespace {

TEST(ScannerModifiers, KnowsLeftRightAndGenericCodesOfEachFamilyAndNoOthers) {
    const std::map<int, ModFamily> modifiers = {
        {16, ModFamily::Shift}, {160, ModFamily::Shift}, {161, ModFamily::Shift},
        {17, ModFamily::Ctrl},  {162, ModFamily::Ctrl},  {163, ModFamily::Ctrl},
        {18, ModFamily::Alt},   {164, ModFamily::Alt},   {165, ModFamily::Alt},
        {91, ModFamily::Win},   {92, ModFamily::Win},
    };
    for (int vk = -1; vk <= 1024; ++vk) {
        const auto it = modifiers.find(vk);
        EXPECT_EQ(FamilyOf(vk), it == modifiers.end() ? ModFamily::None : it->second) << vk;
    }
    EXPECT_EQ(FamilyOf(std::numeric_limits<int>::min()), ModFamily::None);
    EXPECT_EQ(FamilyOf(std::numeric_limits<int>::max()), ModFamily::None);
}

TEST(ScannerModifiers, FamiliesAreNumberedFromNone) {
    EXPECT_EQ(static_cast<int>(ModFamily::None), 0);
    EXPECT_EQ(static_cast<int>(ModFamily::Ctrl), 1);
    EXPECT_EQ(static_cast<int>(ModFamily::Alt), 2);
    EXPECT_EQ(static_cast<int>(ModFamily::Shift), 3);
    EXPECT_EQ(static_cast<int>(ModFamily::Win), 4);
}

TEST(ScannerModifiers, HeldModifiersAreEqualWhenAllFourFlagsAre) {
    const HeldMods none;
    EXPECT_EQ(none, (HeldMods{false, false, false, false}));
    for (const ModFamily family :
         {ModFamily::Ctrl, ModFamily::Alt, ModFamily::Shift, ModFamily::Win}) {
        HeldMods held;
        held.set(family, true);
        EXPECT_NE(held, none);
        held.set(family, false);
        EXPECT_EQ(held, none);
    }
}

TEST(ScannerModifiers, NoneAndUnknownFamiliesSetNothing) {
    HeldMods held;
    held.set(ModFamily::None, true);
    held.set(static_cast<ModFamily>(5), true);
    held.set(static_cast<ModFamily>(-1), true);
    EXPECT_EQ(held, HeldMods{});
}

}  // namespace
}  // namespace MacroScan
