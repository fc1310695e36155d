// A small host of an embedded view, to try the runtime with:
//
//   browser_host TITLE WIDTH HEIGHT PAGE-FILE
//
// It shows the page and offers it a few methods. Everything that happens is printed, one line each.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "webview_library.h"

namespace {

using ravelin::browser_host::Webview;
using ravelin::browser_host::WebviewLibrary;

struct Host {
    WebviewLibrary library{};
    Webview view = nullptr;
    std::string script;
};

void say(const char* what, const char* detail = "") {
    std::printf("%s %s\n", what, detail);
    std::fflush(stdout);
}

// echo(...) answers with its own arguments.
void echo(const char* id, const char* arguments, void* context) {
    auto* host = static_cast<Host*>(context);
    host->library.resolve(host->view, id, 0, arguments);
}

// report(...) prints its arguments.
void report(const char* id, const char* arguments, void* context) {
    auto* host = static_cast<Host*>(context);
    say("report", arguments);
    host->library.resolve(host->view, id, 0, "");
}

// fail(...) rejects the page's promise.
void fail(const char* id, const char* arguments, void* context) {
    auto* host = static_cast<Host*>(context);
    host->library.resolve(host->view, id, 1, arguments);
}

// callBack() runs a script in the page later, from the message loop.
void callBack(const char* id, const char*, void* context) {
    auto* host = static_cast<Host*>(context);
    host->library.resolve(host->view, id, 0, "");
    host->library.dispatch(
        host->view,
        [](Webview view, void* later) {
            static_cast<Host*>(later)->library.eval(view, "window.calledBack = true");
        },
        host);
}

void closeHost(const char* id, const char*, void* context) {
    auto* host = static_cast<Host*>(context);
    host->library.resolve(host->view, id, 0, "");
    host->library.terminate(host->view);
}

}  // namespace

int main(int count, char** values) {
    if (count != 5) {
        say("usage:", "browser_host TITLE WIDTH HEIGHT PAGE-FILE");
        return 2;
    }
    std::ifstream file(values[4], std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    Host host;
    if (!ravelin::browser_host::loadWebviewLibrary(host.library)) {
        say("no libwebview.dll");
        return 3;
    }
    const ULONGLONG began = GetTickCount64();
    host.view = host.library.create(0, nullptr);
    if (host.view == nullptr) {
        say("no view");
        return 4;
    }
    say("created", std::to_string(GetTickCount64() - began).c_str());
    host.library.setTitle(host.view, values[1]);
    host.library.setSize(host.view, std::atoi(values[2]), std::atoi(values[3]), 0);
    host.library.bind(host.view, "echo", echo, &host);
    host.library.bind(host.view, "report", report, &host);
    host.library.bind(host.view, "fail", fail, &host);
    host.library.bind(host.view, "callBack", callBack, &host);
    host.library.bind(host.view, "closeHost", closeHost, &host);
    host.library.init(host.view, "window.initRan = document.readyState");
    host.library.setHtml(host.view, page.c_str());
    host.library.run(host.view);
    say("ending");
    host.library.destroy(host.view);
    say("ended");
    return 0;
}
