#include "scanner/key_stream.h"

namespace MacroScan {

std::vector<KeyEv> BuildKeyEvents(const ravelin::EventList& events) {
    std::vector<KeyEv> keys;
    keys.reserve(events.size());
    HeldMods held;
    for (const ravelin::UnifiedEvent& event : events) {
        if (!event.is(ravelin::EventKind::Key)) continue;
        const bool down = event.down != 0;
        if (down) keys.emplace_back(event, held);
        held.set(FamilyOf(static_cast<int>(event.vk)), down);
    }
    return keys;
}

}  // namespace MacroScan
