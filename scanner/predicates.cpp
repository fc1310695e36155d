#include "scanner/predicates.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace MacroScan {
namespace {

bool isTextKey(std::uint32_t vk) {
    const auto within = [vk](std::uint32_t first, std::uint32_t last) {
        return vk >= first && vk <= last;
    };
    return within('0', '9') || within('A', 'Z') || vk == ' ' || within(96, 105) ||  // keypad digits
           within(186, 192) || within(219, 223);                                    // punctuation
}

}  // namespace

KeyPredicate Combo(std::initializer_list<ModFamily> families, int key) {
    HeldMods wanted;
    for (const ModFamily family : families)
        wanted.set(family, true);
    return [wanted, vk = static_cast<std::uint32_t>(key)](const ravelin::UnifiedEvent& event,
                                                          const HeldMods& mods) {
        return event.vk == vk && mods == wanted;
    };
}

KeyPredicate AnyOf(std::vector<KeyPredicate> alternatives) {
    return [alternatives = std::move(alternatives)](const ravelin::UnifiedEvent& event,
                                                    const HeldMods& mods) {
        return std::ranges::any_of(alternatives, [&](const KeyPredicate& alternative) {
            return alternative(event, mods);
        });
    };
}

bool IsTypingKey(const ravelin::UnifiedEvent& event, const HeldMods& mods) {
    return !mods.ctrl && !mods.alt && !mods.win && isTextKey(event.vk);
}

bool IsBareWin(const ravelin::UnifiedEvent& event, const HeldMods& mods) {
    return FamilyOf(static_cast<int>(event.vk)) == ModFamily::Win && !mods.ctrl && !mods.alt &&
           !mods.shift;
}

}  // namespace MacroScan
