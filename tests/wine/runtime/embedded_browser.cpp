#include "embedded_browser.h"

#include <algorithm>
#include <cstdio>
#include <thread>
#include <utility>

#include "../recorder/window_log.h"
#include "cursor.h"
#include "devtools_file.h"
#include "log.h"
#include "wide_text.h"

namespace ravelin::browser {
namespace {

// How long a page that should be on the screen may send no frame before it is asked again.
constexpr unsigned frameLimit = 500;
constexpr int frameAttempts = 10;

// Hosts try again and again to make a view; what failed once would only fail as slowly again.
HRESULT earlierFailure = S_OK;

void noteFailure(HRESULT reason) {
    char code[16];
    std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(reason));
    logLine(std::string("no view: ") + code);
    if (reason != E_ABORT) earlierFailure = reason;
}

constexpr double zoomSteps[] = {0.25, 0.33, 0.5, 0.67, 0.75, 0.8, 0.9, 1.0,
                                1.1,  1.25, 1.5, 1.75, 2.0,  2.5, 3.0, 4.0};

double nextZoom(double now, int direction) {
    if (direction > 0) {
        for (double step : zoomSteps) {
            if (step > now + 0.001) return step;
        }
        return now;
    }
    double below = now;
    for (double step : zoomSteps) {
        if (step < now - 0.001) below = step;
    }
    return below;
}

}  // namespace

EmbeddedBrowser::EmbeddedBrowser(UiQueue& queue, HWND parent) : queue_(queue), parent_(parent) {}

void EmbeddedBrowser::create(HWND parent, Created created) {
    UiQueue& queue = UiQueue::ofThisThread();
    if (FAILED(earlierFailure)) {
        queue.post([created] { created(earlierFailure, nullptr); });
        return;
    }
    std::thread([&queue, parent, created, scale = displayScale(parent)] {
        std::shared_ptr<BrowserProcess> process;
        std::shared_ptr<DevToolsConnection> connection;
        HRESULT result = BrowserProcess::start(scale, process);
        if (SUCCEEDED(result)) {
            connection = DevToolsConnection::open(queue, process->port(), process->endpoint());
            if (!connection) result = HRESULT_FROM_WIN32(ERROR_CONNECTION_REFUSED);
        }
        queue.post([&queue, parent, created, result, process, connection] {
            if (FAILED(result)) {
                noteFailure(result);
                created(result, nullptr);
            } else if (IsWindow(parent) == 0) {
                noteFailure(E_ABORT);
                created(E_ABORT, nullptr);
            } else {
                std::make_shared<EmbeddedBrowser>(queue, parent)
                    ->adopt(process, connection, created);
            }
        });
    }).detach();
}

void EmbeddedBrowser::adopt(std::shared_ptr<BrowserProcess> process,
                            std::shared_ptr<DevToolsConnection> connection, Created created) {
    process_ = std::move(process);
    connection_ = std::move(connection);
    page_ = std::make_shared<Page>(connection_);
    input_ = std::make_shared<InputQueue>(queue_, page_);
    screen_ =
        std::make_unique<ScreenWindow>(parent_, [this](UINT message, WPARAM wide, LPARAM lng) {
            return handleMessage(message, wide, lng);
        });
    mouse_ = std::make_unique<MouseForwarding>(screen_->handle(), *input_, scale_);
    keys_ = std::make_unique<KeyForwarding>(*input_);
    connectPage();
    const std::weak_ptr<EmbeddedBrowser> weak = weak_from_this();
    connection_->listen(
        [weak](const std::string& method, const Json& parameters) {
            if (const auto self = weak.lock()) self->page_->handleEvent(method, parameters);
        },
        [weak, &queue = queue_](const Json& parameters) {
            auto frame = std::make_shared<Frame>(decodeFrame(parameters.value("data", "")));
            queue.post([weak, frame, number = parameters.value("sessionId", 0)] {
                if (const auto self = weak.lock()) self->takeFrame(std::move(*frame), number);
            });
        },
        [weak] {
            logLine("the browser has gone");
            const auto self = weak.lock();
            if (!self) return;
            self->giveUp(E_FAIL);
            self->report(FailedProcess::browser);
        });
    created_ = std::move(created);
    page_->attach([self = shared_from_this()](const std::string& target) {
        if (target.empty()) {
            self->giveUp(E_FAIL);
            return;
        }
        publishDevTools(*self->process_, target);
        self->show(true);
        std::exchange(self->created_, {})(S_OK, self);
    });
}

void EmbeddedBrowser::giveUp(HRESULT reason) {
    if (!created_) return;
    noteFailure(reason);
    // Later, because the host may take anything down that is at work here.
    queue_.post([created = std::exchange(created_, {}), reason] { created(reason, nullptr); });
}

void EmbeddedBrowser::report(FailedProcess process) {
    if (onProcessFailed) onProcessFailed(process);
}

void EmbeddedBrowser::connectPage() {
    page_->onCrashed = [this] { report(FailedProcess::mainPage); };
    // A screencast ends with the page's process.
    page_->onRevived = [this] { show(true); };
    mouse_->onZoomWheel = [this](int steps) {
        if (!settings_.isZoomControlEnabled) return false;
        setZoom(nextZoom(scale_.zoom, steps));
        return true;
    };
    keys_->onAccelerator = [this](int key, int modifiers) {
        return takeAccelerator(key, modifiers);
    };
    page_->onDialog = [this](const std::string& kind, const std::string& text) {
        showDialog(kind, text);
    };
    page_->onCursor = [this](const std::string& css) { setPointer(css); };
    page_->onMenu = [this] { showMenu(); };
}

void EmbeddedBrowser::startScreencast(int round, int attempts) {
    // A screencast that begins before the first document is there may never send a frame.
    page_->execute("0", [weak = weak_from_this(), round, attempts](const std::string&) {
        const auto self = weak.lock();
        if (!self || round != self->screencast_ || self->framesCame_ || attempts == 0) return;
        self->page_->input("Page.stopScreencast", Json::object());
        self->page_->input("Page.startScreencast", {{"format", "png"}});
        self->queue_.postAfter(frameLimit, [weak, round, attempts] {
            if (const auto later = weak.lock()) later->startScreencast(round, attempts - 1);
        });
    });
}

void EmbeddedBrowser::takeFrame(Frame frame, int number) {
    if (!screen_) return;
    if (!framesCame_) recorder::record(GetAncestor(parent_, GA_ROOT), "frame");
    framesCame_ = true;
    if (!frame.pixels.empty()) screen_->present(std::move(frame));
    // Only now may the next frame come, so a slow screen slows the page and not the queue.
    page_->input("Page.screencastFrameAck", {{"sessionId", number}});
}

void EmbeddedBrowser::place(const RECT& bounds) {
    bounds_ = bounds;
    if (!screen_) return;
    screen_->place(bounds);
    applySize();
}

void EmbeddedBrowser::applySize() {
    scale_.display = displayScale(parent_);
    const SIZE size{std::max(1L, bounds_.right - bounds_.left),
                    std::max(1L, bounds_.bottom - bounds_.top)};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(parent_, MONITOR_DEFAULTTONEAREST), &monitor);
    const SIZE screen{monitor.rcMonitor.right - monitor.rcMonitor.left,
                      monitor.rcMonitor.bottom - monitor.rcMonitor.top};
    page_->resize({screen_->corner(), size, screen}, scale_.ratio());
}

void EmbeddedBrowser::followMove() {
    if (screen_) applySize();
}

void EmbeddedBrowser::show(bool visible) {
    if (!screen_) return;
    screen_->show(visible);
    page_->setVisible(visible);
    ++screencast_;
    framesCame_ = false;
    if (visible) {
        startScreencast(screencast_, frameAttempts);
    } else {
        page_->input("Page.stopScreencast", Json::object());
    }
}

void EmbeddedBrowser::setZoom(double factor) {
    scale_.zoom = std::clamp(factor, zoomSteps[0], 5.0);
    if (screen_) applySize();
}

void EmbeddedBrowser::takeFocus() const {
    if (screen_) SetFocus(screen_->handle());
}

void EmbeddedBrowser::moveTo(HWND parent) {
    parent_ = parent;
    if (!screen_) return;
    SetParent(screen_->handle(), parent);
    applySize();
}

void EmbeddedBrowser::end() {
    giveUp(E_ABORT);
    if (connection_) connection_->close();
    process_.reset();
}

void EmbeddedBrowser::close() {
    end();
    screen_.reset();
}

bool EmbeddedBrowser::takeAccelerator(int virtualKey, int modifiers) {
    constexpr int control = 2;
    if (!settings_.areBrowserAcceleratorKeysEnabled) return false;
    if (virtualKey == VK_F5 || (modifiers == control && virtualKey == 'R')) {
        page_->reload();
        return true;
    }
    if ((modifiers & control) == 0 || !settings_.isZoomControlEnabled) return false;
    if (virtualKey == '0' || virtualKey == VK_NUMPAD0) {
        setZoom(1.0);
        return true;
    }
    const bool larger = virtualKey == VK_OEM_PLUS || virtualKey == VK_ADD;
    const bool smaller = virtualKey == VK_OEM_MINUS || virtualKey == VK_SUBTRACT;
    if (larger || smaller) setZoom(nextZoom(scale_.zoom, larger ? 1 : -1));
    return larger || smaller;
}

void EmbeddedBrowser::setPointer(const std::string& css) {
    pointer_ = cursorFor(css);
    POINT at{};
    if (screen_ && GetCursorPos(&at) != 0 && WindowFromPoint(at) == screen_->handle()) {
        SetCursor(pointer_);
    }
}

void EmbeddedBrowser::showMenu() {
    if (!settings_.areDefaultContextMenusEnabled || !screen_) return;
    constexpr UINT_PTR reload = 1;
    POINT at{};
    GetCursorPos(&at);
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, reload, L"&Reload");
    const std::shared_ptr<Page> page = page_;
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0,
                                      screen_->handle(), nullptr);
    DestroyMenu(menu);
    if (chosen == static_cast<int>(reload)) page->reload();
}

void EmbeddedBrowser::showDialog(const std::string& kind, const std::string& text) {
    const std::shared_ptr<EmbeddedBrowser> self = shared_from_this();
    if (kind == "beforeunload" || !settings_.areDefaultScriptDialogsEnabled) {
        page_->answerDialog(true);
        return;
    }
    const UINT buttons = kind == "alert" ? MB_OK : MB_OKCANCEL;
    const int pressed = MessageBoxW(GetAncestor(parent_, GA_ROOT), toWide(text).c_str(),
                                    L"This page says", buttons);
    page_->answerDialog(pressed == IDOK);
}

std::optional<LRESULT> EmbeddedBrowser::handleMessage(UINT message, WPARAM wide, LPARAM lng) {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
        page_->setFocus(message == WM_SETFOCUS);
        return 0;
    }
    if (message == WM_SETCURSOR && LOWORD(lng) == HTCLIENT) {
        SetCursor(pointer_);
        return TRUE;
    }
    if (message == WM_DESTROY) {
        // The host's window goes and takes the view's along. A page that went on calling would keep
        // the host's message loop from ever seeing that it is to end.
        end();
        return std::nullopt;
    }
    if (const auto answer = mouse_->handle(message, wide, lng)) return answer;
    return keys_->handle(message, wide, lng);
}

}  // namespace ravelin::browser
