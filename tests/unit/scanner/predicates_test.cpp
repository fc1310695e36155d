#include "scanner/predicates.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

#include "key_script.h"

namespace MacroScan {
namespace {

using enum ModFamily;
using scanner_test::keyEvent;

constexpr HeldMods noMods{};
constexpr HeldMods ctrlHeld{true, false, false, false};
constexpr HeldMods altHeld{false, true, false, false};
constexpr HeldMods shiftHeld{false, false, true, false};
constexpr HeldMods winHeld{false, false, false, true};

bool holds(const KeyPredicate& predicate, std::uint32_t vk, const HeldMods& mods) {
    return predicate(keyEvent(0, vk, true), mods);
}

std::vector<HeldMods> allHeldMods() {
    std::vector<HeldMods> all;
    for (unsigned bits = 0; bits < 16; ++bits) {
        all.push_back({(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0});
    }
    return all;
}

TEST(Combo, IsTrueForItsOwnModifiersOnly) {
    struct Row {
        KeyPredicate predicate;
        HeldMods mods;
    };
    const std::vector<Row> rows = {
        {Combo({}, 67), noMods},
        {Combo({Ctrl}, 67), ctrlHeld},
        {Combo({Alt}, 67), altHeld},
        {Combo({Shift}, 67), shiftHeld},
        {Combo({Win}, 67), winHeld},
        {Combo({Ctrl, Shift}, 67), {true, false, true, false}},
        {Combo({Shift, Win}, 67), {false, false, true, true}},
        {Combo({Ctrl, Alt, Shift, Win}, 67), {true, true, true, true}},
    };
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (const HeldMods& mods : allHeldMods()) {
            EXPECT_EQ(holds(rows[row].predicate, 67, mods), mods == rows[row].mods) << row;
            EXPECT_FALSE(holds(rows[row].predicate, 68, mods));
        }
    }
}

TEST(Combo, FoldsRepeatedNoneAndUnknownFamilies) {
    const auto combo = Combo({Ctrl, None, Ctrl, static_cast<ModFamily>(9)}, 67);
    EXPECT_TRUE(holds(combo, 67, ctrlHeld));
    EXPECT_FALSE(holds(combo, 67, noMods));
    EXPECT_TRUE(holds(Combo({None}, 13), 13, noMods));
}

TEST(Combo, ComparesWholeKeyCodes) {
    EXPECT_FALSE(holds(Combo({}, 13), 256 + 13, noMods));
    EXPECT_TRUE(holds(Combo({}, 300), 300, noMods));
}

TEST(Combo, IsCopyable) {
    KeyPredicate copy;
    {
        const KeyPredicate original = AnyOf({Combo({Ctrl}, 67), Combo({}, 13)});
        copy = original;
    }
    EXPECT_TRUE(holds(copy, 67, ctrlHeld));
    EXPECT_TRUE(holds(copy, 13, noMods));
}

TEST(AnyOf, IsTrueWhenOneAlternativeIs) {
    const auto either = AnyOf({Combo({}, 'A'), Combo({Ctrl}, 'B')});
    EXPECT_TRUE(holds(either, 'A', noMods));
    EXPECT_TRUE(holds(either, 'B', ctrlHeld));
    EXPECT_FALSE(holds(either, 'A', ctrlHeld));
    EXPECT_FALSE(holds(either, 'C', noMods));
}

TEST(AnyOf, NothingIsNeverTrue) {
    EXPECT_FALSE(holds(AnyOf({}), 'A', noMods));
}

TEST(AnyOf, StopsAtTheFirstTrueAlternative) {
    std::vector<int> asked;
    const auto noting = [&](int number, bool answer) -> KeyPredicate {
        return [&asked, number, answer](const ravelin::UnifiedEvent&, const HeldMods&) {
            asked.push_back(number);
            return answer;
        };
    };
    const auto any = AnyOf({noting(1, false), noting(2, true), noting(3, true)});
    EXPECT_TRUE(holds(any, 'A', noMods));
    EXPECT_EQ(asked, (std::vector<int>{1, 2}));
}

TEST(TypingKey, IsATextKeyWithoutCtrlAltAndWin) {
    std::set<std::uint32_t> textKeys = {32};
    const std::array<std::array<std::uint32_t, 2>, 5> ranges = {
        {{48, 57}, {65, 90}, {96, 105}, {186, 192}, {219, 223}}};
    for (const auto& [first, last] : ranges) {
        for (std::uint32_t vk = first; vk <= last; ++vk)
            textKeys.insert(vk);
    }
    for (std::uint32_t vk = 0; vk < 600; ++vk) {
        for (const HeldMods& mods : allHeldMods()) {
            const bool expected = textKeys.contains(vk) && !mods.ctrl && !mods.alt && !mods.win;
            EXPECT_EQ(IsTypingKey(keyEvent(0, vk, true), mods), expected) << vk;
        }
    }
}

TEST(TypingKey, AllowsShiftAndNoOtherModifier) {
    const auto a = keyEvent(0, 'A', true);
    EXPECT_TRUE(IsTypingKey(a, noMods));
    EXPECT_TRUE(IsTypingKey(a, shiftHeld));
    EXPECT_FALSE(IsTypingKey(a, ctrlHeld));
    EXPECT_FALSE(IsTypingKey(a, altHeld));
    EXPECT_FALSE(IsTypingKey(a, winHeld));
}

TEST(BareWin, IsEitherWindowsKeyWithoutCtrlAltAndShift) {
    for (std::uint32_t vk = 0; vk < 300; ++vk) {
        for (const HeldMods& mods : allHeldMods()) {
            const bool expected = (vk == 91 || vk == 92) && !mods.ctrl && !mods.alt && !mods.shift;
            EXPECT_EQ(IsBareWin(keyEvent(0, vk, true), mods), expected) << vk;
        }
    }
}

TEST(BareWin, CountsWhileTheOtherWindowsKeyIsDown) {
    EXPECT_TRUE(IsBareWin(keyEvent(0, 92, true), winHeld));
}

}  // namespace
}  // namespace MacroScan
