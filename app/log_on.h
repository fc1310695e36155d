// Starting with the user's log-on: one value under the user's own Run key, nothing else.
#pragma once

namespace ravelin {

// Writes or removes the entry, which names the running executable. Called at every start and when
// the setting changes, so that the entry follows a moved executable. Failures are ignored: the
// next start tries again.
void setLaunchAtLogOn(bool enabled);

}  // namespace ravelin
