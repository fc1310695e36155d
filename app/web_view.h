// A native window that shows a web page, through the view library's C interface.
//
// The library is loaded when the first view is made, so that the console modes work without it and
// a missing file leads to a clear message. Everything but dispatch() belongs to the thread that
// created the view.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/view_failure.h"

namespace ravelin {

class WebView {
  public:
    struct Created;

    // Makes the window and its view, which may take the engine as long as viewLimitMs(). On failure
    // the view is null and the failure says why.
    static Created create();

    WebView(const WebView&) = delete;
    WebView& operator=(const WebView&) = delete;
    ~WebView();

    void setTitle(const std::string& title);
    // Outer-size hint none: the user may resize.
    void setSize(int width, int height);
    void setHtml(const std::string& html);
    void eval(const std::string& script);

    // Binds a function of the page's script world. The handler gets the call's id and the JSON
    // array of its arguments, and settles the call with settle(), then or later. It must not throw.
    using Handler = std::function<void(const std::string& callId, const std::string& args)>;
    void bind(const std::string& name, Handler handler);
    // Any thread. `json` is a JSON value or the empty text.
    void settle(const std::string& callId, bool rejected, const std::string& json);

    // Runs the action on the view's thread, in its message loop. Any thread.
    void dispatch(std::function<void()> action);
    // Runs the message loop until it is ended, and gives the failure that ended it. From then on
    // dispatch() and settle() do nothing, and no handler is called any more.
    ViewFailure run();
    // Ends run(). Any thread.
    void terminate();
    // Ends run() with this failure, before it begins or while it runs. The view's thread.
    void breakOff(const ViewFailure& failure);

    // The top-level HWND, and the browser engine's controller (a COM interface pointer that the
    // view owns); null when there is none.
    void* window() const;
    void* browserController() const;

  private:
    struct Library;
    struct Binding;
    struct Life;
    struct Dispatched;

    explicit WebView(void* view);

    void* view_;
    ViewFailure failure_;
    std::shared_ptr<Life> life_;
    std::vector<std::unique_ptr<Binding>> bindings_;
};

struct WebView::Created {
    std::unique_ptr<WebView> view;
    ViewFailure failure;
};

}  // namespace ravelin
