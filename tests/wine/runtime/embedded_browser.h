// One embedded browser: its Chromium process, the page in it, the window that shows it and the
// input that goes back. Lives on the user-interface thread that created it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "browser_process.h"
#include "browser_settings.h"
#include "event_arguments.h"
#include "input_queue.h"
#include "key_forwarding.h"
#include "mouse_forwarding.h"
#include "page.h"
#include "screen_window.h"

namespace ravelin::browser {

class EmbeddedBrowser : public std::enable_shared_from_this<EmbeddedBrowser> {
  public:
    using Created = std::function<void(HRESULT, std::shared_ptr<EmbeddedBrowser>)>;

    // Starts a browser for a child window of `parent`. `created` is called from the message loop.
    // After one failure every later attempt of this process fails at once with the same result.
    static void create(HWND parent, Created created);

    EmbeddedBrowser(UiQueue& queue, HWND parent);
    EmbeddedBrowser(const EmbeddedBrowser&) = delete;
    EmbeddedBrowser& operator=(const EmbeddedBrowser&) = delete;

    Page& page() { return *page_; }
    BrowserSettings& settings() { return settings_; }
    HWND parent() const { return parent_; }

    void place(const RECT& bounds);
    // The window has moved with its parents. The page learns of its new place by this call, by a
    // place of its own or by a new size, and by nothing else.
    void followMove();
    // What is not shown is hidden to the page as well, and its timers are slowed down. The state of
    // the host's window has no part in it.
    void show(bool visible);
    void setZoom(double factor);
    double zoom() const { return scale_.zoom; }
    void takeFocus() const;
    void moveTo(HWND parent);
    // A process of the browser has ended by itself.
    std::function<void(FailedProcess)> onProcessFailed;

    // Ends the browser and removes its window. Later calls do nothing.
    void close();

  private:
    void adopt(std::shared_ptr<BrowserProcess> process,
               std::shared_ptr<DevToolsConnection> connection, Created created);
    void connectPage();
    void end();
    void giveUp(HRESULT reason);
    void report(FailedProcess process);
    void startScreencast(int round, int attempts);
    void takeFrame(Frame frame, int number);
    void applySize();
    bool takeAccelerator(int virtualKey, int modifiers);
    void setPointer(const std::string& css);
    void showMenu();
    void showDialog(const std::string& kind, const std::string& text);
    std::optional<LRESULT> handleMessage(UINT message, WPARAM wide, LPARAM lng);

    UiQueue& queue_;
    HWND parent_;
    // Who waits for this view; nobody any more once told.
    Created created_;
    BrowserSettings settings_;
    PageScale scale_;
    RECT bounds_{};
    HCURSOR pointer_ = LoadCursorW(nullptr, IDC_ARROW);
    // Counts the starts of the screencast, so that a late retry sees that it is out of date.
    int screencast_ = 0;
    bool framesCame_ = false;
    std::shared_ptr<BrowserProcess> process_;
    std::shared_ptr<DevToolsConnection> connection_;
    std::shared_ptr<Page> page_;
    std::shared_ptr<InputQueue> input_;
    std::unique_ptr<ScreenWindow> screen_;
    std::unique_ptr<MouseForwarding> mouse_;
    std::unique_ptr<KeyForwarding> keys_;
};

}  // namespace ravelin::browser
