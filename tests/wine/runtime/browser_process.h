// One Chromium process of a view's own, started on the Unix side of Wine. It ends with this object
// and, whatever happens, with this process.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "life_line.h"

namespace ravelin::browser {

class BrowserProcess {
  public:
    // Starts a browser whose pictures have `scale` pixels for one of a page's, and waits until it
    // can be spoken to. Blocks; S_OK, or why it failed with the details in the log.
    static HRESULT start(double scale, std::shared_ptr<BrowserProcess>& started);

    ~BrowserProcess() { end(); }
    BrowserProcess(const BrowserProcess&) = delete;
    BrowserProcess& operator=(const BrowserProcess&) = delete;

    unsigned short port() const { return port_; }
    // The path of the browser's DevTools endpoint on that port.
    const std::string& endpoint() const { return endpoint_; }
    // The Unix path of its profile folder, deleted when it ends.
    const std::string& profile() const { return profile_; }

    // The file is deleted when the browser ends.
    void removeAtEnd(const std::string& unixPath) { line_->send("remove " + unixPath); }
    void end() { line_->close(); }

  private:
    BrowserProcess() = default;
    bool launchKeeper(double scale) const;
    HRESULT awaitEndpoint();
    static void logOutput(const std::shared_ptr<LifeLine>& line);

    std::shared_ptr<LifeLine> line_ = std::make_shared<LifeLine>();
    unsigned short port_ = 0;
    std::string endpoint_;
    std::string profile_;
};

}  // namespace ravelin::browser
