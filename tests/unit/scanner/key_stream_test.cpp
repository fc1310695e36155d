#include "scanner/key_stream.h"

#include <gtest/gtest.h>

#include <set>

#include "key_script.h"

namespace MacroScan {
namespace {

using ravelin::EventList;
using scanner_test::keyEvent;

constexpr HeldMods noMods{};
constexpr HeldMods ctrlHeld{true, false, false, false};

TEST(KeyStream, OfNoEventsIsEmpty) {
    const EventList none;
    EXPECT_TRUE(BuildKeyEvents(none).empty());
}

TEST(KeyStream, PassesOverEventsThatAreNotKeys) {
    EventList events;
    for (const int kind : {0, 1, 2, 4, 5, 6, 99, -1}) {
        auto event = keyEvent(0, 'A', true);
        event.kind = kind;
        events.append(event);
    }
    EXPECT_TRUE(BuildKeyEvents(events).empty());
}

TEST(KeyStream, AnEventThatIsNoKeyDoesNotMoveTheModifiers) {
    auto toolOn = keyEvent(0, 17, true);
    toolOn.kind = static_cast<int>(ravelin::EventKind::Tool);
    const EventList events = {toolOn, keyEvent(0, 'C', true)};
    const auto keys = BuildKeyEvents(events);
    ASSERT_EQ(keys.size(), 1u);
    EXPECT_EQ(keys[0].mods, noMods);
}

TEST(KeyStream, RefersToTheCallersEvents) {
    const EventList events = {keyEvent(1, 'A', true), keyEvent(2, 'A', false),
                              keyEvent(3, 'B', true)};
    const auto keys = BuildKeyEvents(events);
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(keys[0].ev, &events[0]);
    EXPECT_EQ(keys[1].ev, &events[2]);
}

TEST(KeyStream, APressCarriesAModifierUntilItIsReleased) {
    for (const std::uint32_t ctrl : {17u, 162u, 163u}) {
        const EventList events = {keyEvent(0, ctrl, true), keyEvent(1, 'C', true),
                                  keyEvent(2, ctrl, false), keyEvent(3, 'V', true)};
        const auto keys = BuildKeyEvents(events);
        ASSERT_EQ(keys.size(), 3u);
        EXPECT_EQ(keys[1].mods, ctrlHeld);
        EXPECT_EQ(keys[2].mods, noMods);
    }
}

TEST(KeyStream, AModifiersOwnPressDoesNotCarryItself) {
    const EventList events = {keyEvent(0, 162, true), keyEvent(0, 91, true)};
    const auto keys = BuildKeyEvents(events);
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(keys[0].mods, noMods);
    EXPECT_EQ(keys[1].mods, ctrlHeld);
}

TEST(KeyStream, ARepeatedModifierPressCarriesTheFirstOne) {
    const EventList events = {keyEvent(0, 162, true), keyEvent(1, 162, true)};
    EXPECT_EQ(BuildKeyEvents(events)[1].mods, ctrlHeld);
}

TEST(KeyStream, ReleasingOneSideReleasesTheFamily) {
    const EventList events = {keyEvent(0, 162, true), keyEvent(1, 163, true),
                              keyEvent(2, 162, false), keyEvent(3, 'C', true)};
    EXPECT_EQ(BuildKeyEvents(events)[2].mods, noMods);
}

TEST(KeyStream, AReleaseWithoutAPressIsHarmless) {
    const EventList events = {keyEvent(0, 160, false), keyEvent(1, 'A', true)};
    EXPECT_EQ(BuildKeyEvents(events)[0].mods, noMods);
}

TEST(KeyStream, EveryDownFlagButZeroIsAPress) {
    auto press = keyEvent(0, 17, true);
    press.down = 255;
    const EventList events = {press, keyEvent(1, 'C', true)};
    const auto keys = BuildKeyEvents(events);
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(keys[1].mods, ctrlHeld);
}

TEST(KeyStream, TheFourFlagsAreIndependent) {
    const EventList events = {
        keyEvent(0, 17, true),  keyEvent(1, 18, true),  keyEvent(2, 16, true),
        keyEvent(3, 91, true),  keyEvent(4, 'A', true), keyEvent(5, 18, false),
        keyEvent(6, 'B', true), keyEvent(7, 91, false), keyEvent(8, 'C', true)};
    const auto keys = BuildKeyEvents(events);
    ASSERT_EQ(keys.size(), 7u);
    EXPECT_EQ(keys[4].mods, (HeldMods{true, true, true, true}));
    EXPECT_EQ(keys[5].mods, (HeldMods{true, false, true, true}));
    EXPECT_EQ(keys[6].mods, (HeldMods{true, false, true, false}));
}

TEST(KeyStream, EveryChordOfARealKeyHasItsOwnNumber) {
    std::set<std::uint16_t> seen;
    for (unsigned bits = 0; bits < 16; ++bits) {
        const HeldMods held{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0};
        for (std::uint32_t vk = 0; vk < 256; ++vk) {
            const auto event = keyEvent(0, vk, true);
            const KeyEv key(event, held);
            EXPECT_LT(key.chord, KeyEv::chordCount);
            EXPECT_TRUE(seen.insert(key.chord).second);
        }
    }
    for (const std::uint32_t vk : {256u, 65536u + 'A', 4294967295u}) {
        const auto event = keyEvent(0, vk, true);
        EXPECT_EQ(KeyEv(event, noMods).chord, KeyEv::unnumberedChord);
    }
}

}  // namespace
}  // namespace MacroScan
