// The two ways in which the updater uses the network. For the Windows half only; any thread, both
// block.
#pragma once

#include <windows.h>

#include <string>

#include "updater/download_meter.h"

namespace ravelin {

// Gets a document of at most 16384 bytes into `body`; false on any failure.
bool HttpsGetSmall(const std::string& url, std::string& body);

// Streams the document into a new file with this security, reporting to the sink. On failure, or
// when the sink stops it, no file is left. A body that ends early is a success: whoever asked for
// the file knows what must be in it.
bool DownloadToFile(const std::string& url, const std::wstring& path, SECURITY_ATTRIBUTES& security,
                    const ProgressSink& sink);

}  // namespace ravelin
