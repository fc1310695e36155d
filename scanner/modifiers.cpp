#include "scanner/modifiers.h"

namespace MacroScan {

ModFamily FamilyOf(int vk) {
    switch (vk) {
        case 17:   // Control
        case 162:  // left Control
        case 163:  // right Control
            return ModFamily::Ctrl;
        case 18:   // Menu
        case 164:  // left Menu
        case 165:  // right Menu
            return ModFamily::Alt;
        case 16:   // Shift
        case 160:  // left Shift
        case 161:  // right Shift
            return ModFamily::Shift;
        case 91:  // left Windows key
        case 92:  // right Windows key
            return ModFamily::Win;
        default:
            return ModFamily::None;
    }
}

void HeldMods::set(ModFamily family, bool held) {
    switch (family) {
        case ModFamily::Ctrl:
            ctrl = held;
            break;
        case ModFamily::Alt:
            alt = held;
            break;
        case ModFamily::Shift:
            shift = held;
            break;
        case ModFamily::Win:
            win = held;
            break;
        default:
            break;
    }
}

}  // namespace MacroScan
