#include "document_scripts.h"

#include <charconv>

namespace ravelin::browser {
namespace {

// Long enough for a host's next change, too short for a page to be opened in between.
constexpr unsigned sendDelay = 30;  // milliseconds

int number(const std::string& id) {
    int value = 0;
    std::from_chars(id.data(), id.data() + id.size(), value);
    return value;
}

}  // namespace

std::string DocumentScripts::add(const std::string& source) {
    scripts_[++last_].source = source;
    sendLater();
    return std::to_string(last_);
}

void DocumentScripts::sendLater() {
    if (isSendingLater_) return;
    isSendingLater_ = true;
    connection_->after(sendDelay, [self = shared_from_this()] {
        self->isSendingLater_ = false;
        self->sendWaiting();
    });
}

void DocumentScripts::sendWaiting() {
    for (auto& [id, script] : scripts_) {
        if (script.isSent) continue;
        script.isSent = true;
        connection_->send("Page.addScriptToEvaluateOnNewDocument",
                          {{"source", std::move(script.source)}},
                          [self = shared_from_this(), id = id](const Json& result, auto&) {
                              self->named(id, result.value("identifier", ""));
                          });
    }
}

void DocumentScripts::named(int id, const std::string& browserId) {
    const auto found = scripts_.find(id);
    if (found == scripts_.end()) return;
    Script& script = found->second;
    script.isNamed = true;
    script.browserId = browserId;
    if (!script.isUnwanted) return;
    --removalsToCome_;
    takeBack(found);
    if (onSettled) onSettled();
}

void DocumentScripts::remove(const std::string& id) {
    const auto found = scripts_.find(number(id));
    if (found == scripts_.end()) return;
    Script& script = found->second;
    if (!script.isSent) {
        scripts_.erase(found);
    } else if (script.isNamed) {
        takeBack(found);
    } else if (!script.isUnwanted) {
        script.isUnwanted = true;
        ++removalsToCome_;
    }
}

void DocumentScripts::takeBack(Scripts::iterator script) {
    connection_->send("Page.removeScriptToEvaluateOnNewDocument",
                      {{"identifier", script->second.browserId}});
    scripts_.erase(script);
}

}  // namespace ravelin::browser
