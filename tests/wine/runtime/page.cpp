#include "page.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "log.h"
#include "page_scripts.h"

namespace ravelin::browser {

void Page::attach(TextDone ready) {
    auto self = shared_from_this();
    scripts_->onSettled = [page = weak_from_this()] {
        if (const auto alive = page.lock()) alive->workOff();
    };
    connection_->send(
        "Target.getTargets", Json::object(), [self, ready](const Json& result, auto&) {
            std::string target;
            for (const Json& info : result.value("targetInfos", Json::array())) {
                if (info.value("type", "") == "page") target = info.value("targetId", "");
            }
            self->connection_->send(
                "Target.attachToTarget", {{"targetId", target}, {"flatten", true}},
                [self, ready, target](const Json& attached, const std::string& error) {
                    if (!error.empty()) {
                        logLine("cannot attach to the page: " + error);
                        ready("");
                        return;
                    }
                    self->connection_->useSession(attached.value("sessionId", ""));
                    self->prepare(ready, target);
                });
        });
}

void Page::prepare(TextDone ready, const std::string& target) {
    connection_->send("Inspector.enable");
    connection_->send("Page.enable");
    connection_->send("Page.setLifecycleEventsEnabled", {{"enabled", true}});
    connection_->send("Runtime.enable");
    connection_->send("Runtime.addBinding", {{"name", messageBinding}});
    connection_->send("Page.addScriptToEvaluateOnNewDocument", {{"source", bridgeScript}});
    connection_->send("Page.addScriptToEvaluateOnNewDocument", {{"source", screenPlaceScript}});
    connection_->send("Page.addScriptToEvaluateOnNewDocument", {{"source", noFocusScript}});
    connection_->send("Browser.getWindowForTarget", Json::object(),
                      [self = shared_from_this()](const Json& result, const std::string& error) {
                          if (!error.empty()) {
                              logLine("the browser has no window to hide: " + error);
                              return;
                          }
                          self->window_ = result.value("windowId", 0);
                          if (!self->visible_) self->applyVisible();
                      });
    connection_->send("Runtime.addBinding",
                      {{"name", watcherBinding}, {"executionContextName", watcherWorld}});
    connection_->send("Page.getFrameTree", Json::object(),
                      [self = shared_from_this(), ready, target](const Json& tree, auto&) {
                          self->frame_ = tree["frameTree"]["frame"].value("id", "");
                          self->begin({"about:blank", "", false});
                          ready(target);
                      });
}

bool Page::isBusy() const {
    return navigating_ || !scripts_->isSettled();
}

void Page::whenIdle(Done work) {
    if (isBusy() || !waiting_.empty()) {
        waiting_.push_back(std::move(work));
    } else {
        work();
    }
}

void Page::navigate(const std::string& address) {
    whenIdle([self = shared_from_this(), address] { self->begin({address, "", false}); });
}

void Page::showText(const std::string& html) {
    whenIdle([self = shared_from_this(), html] { self->begin({"about:blank", html, true}); });
}

void Page::reload() {
    whenIdle([self = shared_from_this()] { self->begin(self->current_); });
}

void Page::begin(Navigation navigation) {
    navigating_ = true;
    awaited_.clear();
    current_ = std::move(navigation);
    scripts_->sendWaiting();
    connection_->send("Page.navigate", {{"url", current_.address}},
                      [self = shared_from_this()](const Json& result, const std::string& error) {
                          const std::string problem = result.value("errorText", error);
                          if (!problem.empty()) {
                              logLine("cannot open " + self->current_.address + ": " + problem);
                              self->finish(false);
                          } else if (!result.contains("loaderId")) {
                              // Only the fragment changed: there is no new document to wait for.
                              self->finish(true);
                          } else {
                              self->awaited_ = result["loaderId"].get<std::string>();
                              self->loaded(self->loaded_);
                          }
                      });
}

void Page::loaded(const std::string& loader) {
    loaded_ = loader;
    if (!navigating_ || loader.empty() || loader != awaited_) return;
    awaited_.clear();
    if (!current_.isText) {
        finish(true);
        return;
    }
    connection_->send("Page.setDocumentContent", {{"frameId", frame_}, {"html", current_.html}},
                      [self = shared_from_this()](const Json&, const std::string& error) {
                          if (!error.empty()) logLine("cannot show the page: " + error);
                          self->finish(error.empty());
                      });
}

void Page::finish(bool success) {
    if (!navigating_) return;
    navigating_ = false;
    installWatcher();
    tellPlace();
    tellFocus();
    if (std::exchange(crashed_, false) && onRevived) onRevived();
    if (onNavigated) onNavigated(success);
    workOff();
}

void Page::workOff() {
    while (!isBusy() && !waiting_.empty()) {
        const Done work = std::move(waiting_.front());
        waiting_.pop_front();
        work();
    }
}

void Page::installWatcher() {
    connection_->send(
        "Page.createIsolatedWorld", {{"frameId", frame_}, {"worldName", watcherWorld}},
        [self = shared_from_this()](const Json& result, const std::string& error) {
            if (!error.empty()) return;
            self->connection_->send("Runtime.evaluate",
                                    {{"expression", watcherScript},
                                     {"contextId", result.value("executionContextId", 0)}});
        });
}

void Page::takeNote(const std::string& note) {
    const Json facts = Json::parse(note, nullptr, false);
    if (!facts.is_object()) return;
    if (facts.contains("cursor") && onCursor) onCursor(facts.value("cursor", ""));
    if (facts.contains("menu") && onMenu) onMenu();
}

void Page::addScript(const std::string& source, TextDone added) {
    const std::string id = scripts_->add(source);
    // Hosts wait for this many times while they start. What they ask for next is done after it
    // anyhow, so they need not wait for the browser's answer.
    if (added) connection_->later([added, id] { added(id); });
}

void Page::removeScript(const std::string& id) {
    scripts_->remove(id);
}

void Page::execute(const std::string& script, TextDone done) {
    whenIdle([self = shared_from_this(), script, done] {
        const Json parameters = {{"expression", script}, {"returnByValue", true}};
        self->connection_->send("Runtime.evaluate", parameters, [done](const Json& result, auto&) {
            if (!done) return;
            const Json* value = nullptr;
            if (result.contains("result") && !result.contains("exceptionDetails")) {
                const auto found = result["result"].find("value");
                if (found != result["result"].end()) value = &*found;
            }
            done(value == nullptr ? "null" : value->dump());
        });
    });
}

namespace {

// The protocol takes whole pixels of the page. What is cut stays blank at the window's edge.
int pageSize(long pixels, double ratio) {
    constexpr double inexact = 1e-6;
    return std::max(1, static_cast<int>(static_cast<double>(pixels) / ratio + inexact));
}

int pagePlace(long pixels, double ratio) {
    return static_cast<int>(std::floor(static_cast<double>(pixels) / ratio));
}

}  // namespace

void Page::resize(const PagePlace& place, double ratio) {
    corner_ = POINT{pagePlace(place.corner.x, ratio), pagePlace(place.corner.y, ratio)};
    const int screenWidth = pageSize(place.screen.cx, ratio);
    const int screenHeight = pageSize(place.screen.cy, ratio);
    // The protocol refuses a place that is not on the screen; tellPlace says the true one.
    connection_->send("Emulation.setDeviceMetricsOverride",
                      {{"width", pageSize(place.size.cx, ratio)},
                       {"height", pageSize(place.size.cy, ratio)},
                       {"positionX", std::clamp(static_cast<int>(corner_->x), 0, screenWidth - 1)},
                       {"positionY", std::clamp(static_cast<int>(corner_->y), 0, screenHeight - 1)},
                       {"screenWidth", screenWidth},
                       {"screenHeight", screenHeight},
                       {"deviceScaleFactor", ratio},
                       {"mobile", false}});
    tellPlace();
}

void Page::tellPlace() {
    if (!corner_) return;
    const std::string call = std::string(placeScript) + "(" + std::to_string(corner_->x) + ", " +
                             std::to_string(corner_->y) + ")";
    connection_->send("Runtime.evaluate", {{"expression", call}});
}

void Page::setFocus(bool focused) {
    focused_ = focused;
    whenIdle([self = shared_from_this()] { self->tellFocus(); });
}

void Page::tellFocus() {
    const std::string call = std::string(focusScript) + (focused_ ? "(true)" : "(false)");
    connection_->send("Runtime.evaluate", {{"expression", call}});
    if (focused_ && visible_) emulateFocus(true);
}

void Page::emulateFocus(bool on) {
    if (emulatesFocus_ == on) return;
    emulatesFocus_ = on;
    connection_->send("Emulation.setFocusEmulationEnabled", {{"enabled", on}});
}

void Page::setVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    // A page whose focus is emulated counts as seen.
    emulateFocus(visible && focused_);
    applyVisible();
}

void Page::applyVisible() {
    if (!window_) return;
    connection_->send(
        "Browser.setWindowBounds",
        {{"windowId", *window_}, {"bounds", {{"windowState", visible_ ? "normal" : "minimized"}}}});
}

void Page::input(const std::string& method, Json parameters, Done taken) {
    connection_->send(method, std::move(parameters),
                      [taken](const Json&, const std::string& error) {
                          if (!error.empty()) logLine("input was refused: " + error);
                          if (taken) taken();
                      });
}

void Page::answerDialog(bool accepted) {
    connection_->send("Page.handleJavaScriptDialog", {{"accept", accepted}});
}

void Page::crash() {
    logLine("the page has crashed");
    crashed_ = true;
    // Nobody waits for a document that does not come any more.
    navigating_ = false;
    awaited_.clear();
    if (onCrashed) onCrashed();
}

void Page::handleEvent(const std::string& method, const Json& parameters) {
    if (method == "Page.lifecycleEvent") {
        if (parameters.value("frameId", "") == frame_ && parameters.value("name", "") == "load") {
            loaded(parameters.value("loaderId", ""));
            // The page may have gone to another document by itself.
            if (!navigating_) {
                installWatcher();
                tellPlace();
                tellFocus();
            }
        }
    } else if (method == "Page.frameNavigated") {
        const Json& frame = parameters["frame"];
        if (!frame.contains("parentId")) address_ = frame.value("url", "");
    } else if (method == "Runtime.bindingCalled") {
        const std::string binding = parameters.value("name", "");
        const std::string payload = parameters.value("payload", "null");
        if (binding == watcherBinding) takeNote(payload);
        if (binding == messageBinding && onMessage) onMessage(payload);
    } else if (method == "Page.javascriptDialogOpening") {
        if (onDialog) onDialog(parameters.value("type", ""), parameters.value("message", ""));
    } else if (method == "Inspector.targetCrashed") {
        crash();
    } else if (method == "Runtime.exceptionThrown") {
        const Json& details = parameters["exceptionDetails"];
        logLine("page: uncaught " + details.value("text", "") + " " +
                details.value("exception", Json::object()).value("description", ""));
    }
}

}  // namespace ravelin::browser
