// The page in the browser, spoken to over the DevTools protocol: what it shows, the scripts in it,
// its size and focus. Everything runs on the user-interface thread.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "devtools_connection.h"
#include "document_scripts.h"

namespace ravelin::browser {

// Where the page is shown, in pixels.
struct PagePlace {
    POINT corner;  // on the screen
    SIZE size;
    SIZE screen;
};

class Page : public std::enable_shared_from_this<Page> {
  public:
    using Done = std::function<void()>;
    using TextDone = std::function<void(const std::string&)>;

    explicit Page(std::shared_ptr<DevToolsConnection> connection)
        : connection_(std::move(connection)),
          scripts_(std::make_shared<DocumentScripts>(connection_)) {}

    // Attaches to the browser's one page and prepares it; `ready` gets the page's target id, or
    // the empty text when that failed.
    void attach(TextDone ready);

    void navigate(const std::string& address);
    void showText(const std::string& html);
    void reload();
    const std::string& address() const { return address_; }

    // The script runs at the start of every document from the next one on; `added` gets its id,
    // from the message loop.
    void addScript(const std::string& source, TextDone added);
    void removeScript(const std::string& id);
    // Evaluates in the current document; `done` gets the value as JSON, "null" on an exception.
    void execute(const std::string& script, TextDone done);

    // Does the work once no navigation is under way, in the order of the calls.
    void whenIdle(Done work);
    bool isBusy() const;

    // `ratio` is how many pixels of the screen one of the page's takes.
    void resize(const PagePlace& place, double ratio);
    void setFocus(bool focused);
    void setVisible(bool visible);
    // Sends an input command; the reply comes when the page has taken the event.
    void input(const std::string& method, Json parameters, Done taken = {});

    // A message that the page posted to its host, as JSON.
    TextDone onMessage;
    // A navigation asked for by the host has ended.
    std::function<void(bool success)> onNavigated;
    // The page asks with alert, confirm or prompt; answered by answerDialog.
    std::function<void(const std::string& kind, const std::string& text)> onDialog;
    void answerDialog(bool accepted);
    // The pointer's shape over the page has changed to this computed CSS value.
    TextDone onCursor;
    // The page leaves a context menu at the pointer to the browser.
    Done onMenu;

    // The page's process has ended by itself; and the first document after that is there.
    Done onCrashed;
    Done onRevived;

    void handleEvent(const std::string& method, const Json& parameters);

  private:
    struct Navigation {
        std::string address;
        std::string html;
        bool isText = false;
    };
    void prepare(TextDone ready, const std::string& target);
    void begin(Navigation navigation);
    void loaded(const std::string& loader);
    void finish(bool success);
    void workOff();
    void installWatcher();
    void tellPlace();
    void tellFocus();
    void crash();
    void emulateFocus(bool on);
    void applyVisible();
    void takeNote(const std::string& note);

    std::shared_ptr<DevToolsConnection> connection_;
    std::shared_ptr<DocumentScripts> scripts_;
    std::string frame_;
    std::string address_ = "about:blank";
    Navigation current_;
    bool navigating_ = false;
    bool crashed_ = false;
    bool focused_ = false;
    bool emulatesFocus_ = false;
    bool visible_ = true;
    // The browser's own unseen window, once known.
    std::optional<int> window_;
    // The page's corner on the screen as the page was last told, in its own pixels.
    std::optional<POINT> corner_;
    // The document that the navigation waits for, and the one that was loaded last.
    std::string awaited_;
    std::string loaded_;
    // The host's requests that came while the page was busy, in order.
    std::deque<Done> waiting_;
};

}  // namespace ravelin::browser
