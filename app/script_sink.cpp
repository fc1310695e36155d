#include "app/script_sink.h"

#include <mutex>
#include <utility>

namespace ravelin {
namespace {

// Held during the call: once the sink is taken away, nobody is still using the view behind it.
std::mutex sinkMutex;
std::function<void(const std::string&)> pageScriptSink;

}  // namespace

void setPageScriptSink(std::function<void(const std::string& script)> sink) {
    const std::lock_guard lock(sinkMutex);
    pageScriptSink = std::move(sink);
}

void runPageScript(const std::string& script) {
    const std::lock_guard lock(sinkMutex);
    if (pageScriptSink) pageScriptSink(script);
}

}  // namespace ravelin
