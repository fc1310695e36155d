#include "input/recording.h"

#include <utility>

#include "input/engine_state.h"
#include "input/fence.h"
#include "input/recorder.h"
#include "input/requests.h"
#include "input/stitch.h"
#include "persistence/profiles.h"

namespace ravelin {
namespace {

std::atomic<std::int64_t> startCount{0};

// Guarded by profileMutex.
struct Continuation {
    std::size_t index = 0;      // how many events were there when this recording began
    std::int32_t profile = -1;  // whose continuation can be undone; -1 for none
    EventList before;           // the list before that continuation
    EventList after;            // the list as it stood when that continuation stopped
};
Continuation continuation;

bool engineIsIdle() {
    return !engine.recording.load() && !engine.playing.load();
}

double recordingTime() {
    return static_cast<double>(platform::counter() - startCount.load()) /
           static_cast<double>(engine.counterFrequency.load());
}

void beginRecording() {
    startCount.exchange(platform::counter());
    engine.recording.exchange(true);
}

void startFresh() {
    // What is thrown away is freed after the lock: a million events take their time.
    Continuation oldContinuation;
    EventList oldEvents;
    const std::lock_guard lock(profileMutex);
    std::swap(continuation, oldContinuation);
    if (Profile* profile = lockedCurrentProfile()) std::swap(profile->events, oldEvents);
    beginRecording();
}

void continueRecording() {
    Continuation next;
    const std::lock_guard lock(profileMutex);
    if (const Profile* profile = lockedCurrentProfile()) {
        next.index = profile->events.size();
        next.before = profile->events;
    }
    next.profile = currentProfile;
    std::swap(continuation, next);
    beginRecording();
}

// The current profile's events; empty without a profile. The caller holds profileMutex.
EventList lockedSnapshot() {
    const Profile* profile = lockedCurrentProfile();
    return profile != nullptr ? profile->events : EventList();
}

// Whether the current profile's events are still those that the snapshot was taken of. The caller
// holds profileMutex.
bool lockedIsUnchanged(const EventList& snapshot) {
    const Profile* profile = lockedCurrentProfile();
    return profile != nullptr ? profile->events.isSnapshot(snapshot) : snapshot.empty();
}

// Stitches a copy beside the lock and puts it in place if the macro is still the one that was
// copied. Nothing is appended by then, so only a page that switches or clears the profile at this
// very moment makes it start over.
void stitchRecorded() {
    const double guard = platform::doubleClickMs() / 1000.0 + 0.05;
    for (;;) {
        EventList recorded;
        std::size_t index = 0;
        {
            const std::lock_guard lock(profileMutex);
            recorded = lockedSnapshot();
            index = continuation.index;
        }
        EventList stitched = recorded;
        stitchContinuation(stitched, index, guard);

        EventList oldAfter;
        const std::lock_guard lock(profileMutex);
        if (!lockedIsUnchanged(recorded)) continue;
        if (continuation.profile != -1) {
            oldAfter = std::exchange(continuation.after, stitched);
        }
        continuation.index = 0;
        if (Profile* profile = lockedCurrentProfile()) std::swap(profile->events, stitched);
        return;
    }
}

void stopRecording() {
    engine.recording.exchange(false);
    // What was recorded stays as it is when memory runs out; the tools stop all the same.
    runFenced(stitchRecorded);
    if (engine.stopToolsWithMacro.load()) raiseToolStops();
}

// What an undo depends on, and its comparison, which may be long and is made beside the lock.
struct UndoCheck {
    EventList current;
    EventList after;
    bool possible = false;

    UndoCheck() {
        if (!engineIsIdle()) return;
        const std::lock_guard lock(profileMutex);
        possible = continuation.profile != -1 && continuation.profile == currentProfile;
        if (!possible) return;
        current = lockedSnapshot();
        after = continuation.after;
    }
    bool allowed() const { return possible && current == after; }
};

void undoContinuation() {
    for (;;) {
        const UndoCheck check;
        if (!check.allowed()) return;

        Continuation undone;
        EventList oldEvents;
        const std::lock_guard lock(profileMutex);
        if (continuation.profile != currentProfile || !lockedIsUnchanged(check.current)) continue;
        std::swap(continuation, undone);
        if (Profile* profile = lockedCurrentProfile())
            oldEvents = std::exchange(profile->events, std::move(undone.before));
        return;
    }
}

}  // namespace

void appendRecorded(UnifiedEvent event) {
    const std::lock_guard lock(profileMutex);
    // Looked at again under the lock, so that nothing is appended behind a stop.
    Profile* profile = lockedCurrentProfile();
    if (profile == nullptr || !engine.recording.load()) return;
    event.time = recordingTime();
    profile->events.append(event);
}

void applyRecorderRequests() {
    if (takeRequest(requests.recToggle) && !engine.playing.load()) {
        if (engine.recording.load())
            stopRecording();
        else
            startFresh();
    }
    if (takeRequest(requests.startRecording) && engineIsIdle()) startFresh();
    if (takeRequest(requests.continueRecording) && engineIsIdle()) continueRecording();
    if (takeRequest(requests.undoContinuation)) undoContinuation();
    if (takeRequest(requests.stopRecording) && engine.recording.load()) stopRecording();
}

bool canUndoContinuation() {
    return UndoCheck().allowed();
}

}  // namespace ravelin
