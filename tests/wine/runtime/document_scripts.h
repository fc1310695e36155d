// The scripts that run at the start of every document. Everything runs on the user-interface
// thread.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "devtools_connection.h"

namespace ravelin::browser {

// Hosts replace one script by the next many times while they start. A script therefore goes to the
// browser only before a document is opened, or a moment later for documents that the page opens by
// itself; one that is taken back before has cost nothing.
class DocumentScripts : public std::enable_shared_from_this<DocumentScripts> {
  public:
    explicit DocumentScripts(std::shared_ptr<DevToolsConnection> connection)
        : connection_(std::move(connection)) {}

    // The new script's id.
    std::string add(const std::string& source);
    // Nothing happens for an unknown id.
    void remove(const std::string& id);
    void sendWaiting();
    // A document that is opened now would still run a script that was taken back.
    bool isSettled() const { return removalsToCome_ == 0; }
    // `isSettled` may hold again.
    std::function<void()> onSettled;

  private:
    struct Script {
        std::string source;  // until it is sent
        std::string browserId;
        bool isSent = false;
        bool isNamed = false;  // the browser has answered
        bool isUnwanted = false;
    };
    using Scripts = std::map<int, Script>;
    void sendLater();
    void named(int id, const std::string& browserId);
    void takeBack(Scripts::iterator script);

    std::shared_ptr<DevToolsConnection> connection_;
    Scripts scripts_;
    int last_ = 0;
    bool isSendingLater_ = false;
    // Unwanted scripts that the browser has yet to name.
    int removalsToCome_ = 0;
};

}  // namespace ravelin::browser
