// Updates as the running program sees them.
#pragma once

#include <optional>
#include <string>

namespace ravelin {

class WebView;

// Deletes what earlier updates left in the temporary folder. Once, at start.
void sweepStaleUpdateFolders();

// Where the manifest of this run comes from instead of the built-in address: a URL or a local file.
void setUpdateManifestSource(const std::optional<std::string>& source);

// The body of the start-up check's thread.
void runUpdateCheck();

// Starts the update worker; the page's call is settled when there is something to say.
void startUpdate(WebView& view, const std::string& callId);

// Tells a running update worker to give up and waits for its end.
void joinUpdateWorker();

}  // namespace ravelin
