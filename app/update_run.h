// Updates as the running program sees them.
#pragma once

#include <string>

namespace ravelin {

class WebView;

// The body of the start-up check's thread.
void runUpdateCheck();

// Starts the update worker; the page's call is settled when there is something to say. The view
// outlives its message loop and joinUpdateWorker(). User-interface thread, as the next one.
void startUpdate(WebView& view, const std::string& callId);

// Tells a running update worker to give up and waits for its end.
void joinUpdateWorker();

}  // namespace ravelin
