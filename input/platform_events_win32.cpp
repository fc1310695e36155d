// The events of the process. Created before the first thread that waits on them starts and closed
// after the last one has ended, so the table itself needs no lock.
#include <algorithm>
#include <array>

#include "input/platform.h"
#include "input/platform_events_win32.h"
#include "support/win32_handles.h"

namespace ravelin::platform {

namespace {

// In the order of Event.
std::array<EventHandle, 5> events;

HANDLE handleOf(Event event) {
    return events[static_cast<std::size_t>(event)].get();
}

}  // namespace

HANDLE quitEvent() {
    return handleOf(Event::quit);
}

bool createEvents() {
    for (std::size_t i = 0; i < events.size(); ++i) {
        const BOOL manualReset = i == static_cast<std::size_t>(Event::quit) ? TRUE : FALSE;
        events[i].reset(CreateEventW(nullptr, manualReset, FALSE, nullptr));
    }
    return std::all_of(events.begin(), events.end(), [](const EventHandle& e) { return bool{e}; });
}

void closeEvents() {
    for (EventHandle& event : events)
        event.reset();
}

void signal(Event event) {
    SetEvent(handleOf(event));
}

void waitForEventOrQuit(Event event, std::uint32_t milliseconds) {
    const std::array<HANDLE, 2> handles{handleOf(event), handleOf(Event::quit)};
    // A wait may not name the same event twice.
    const DWORD count = event == Event::quit ? 1 : 2;
    if (WaitForMultipleObjects(count, handles.data(), FALSE, milliseconds) == WAIT_FAILED) {
        // Nothing to wait on: without a pause the caller's loop would take a whole processor.
        Sleep(10);
    }
}

}  // namespace ravelin::platform
