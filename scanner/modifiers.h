// Modifier keys as the scanner sees them: four families without sides.
#pragma once

#include <cstdint>

namespace MacroScan {

enum class ModFamily : std::int32_t { None = 0, Ctrl = 1, Alt = 2, Shift = 3, Win = 4 };

// The family of a virtual-key code. The left, the right and the generic code of a modifier are one
// family; every other code, known or not, is in None.
ModFamily FamilyOf(int vk);

// The families held down at a moment, with one flag for both sides: releasing either side clears
// it, even while the other one is still down.
struct HeldMods {
    bool ctrl = false;
    bool alt = false;
    bool shift = false;
    bool win = false;

    // Sets the family's flag; None and unknown values set nothing.
    void set(ModFamily family, bool held);
    bool operator==(const HeldMods&) const = default;
};

}  // namespace MacroScan
