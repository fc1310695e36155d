// The least that shows a web page: a window, one line, one bound function that the page calls at
// once. Prints "called" then and ends. The baseline of the start-up measurement.
#include <cstdio>

#include "app/process_setup.h"
#include "app/web_view.h"

int main() {
    const ravelin::ComSession com;
    auto created = ravelin::WebView::create();
    if (!created.view) return 1;
    ravelin::WebView& view = *created.view;
    view.setTitle("Bare view");
    view.setSize(420, 560);
    view.bind("called", [&view](const std::string& id, const std::string&) {
        std::printf("called\n");
        std::fflush(stdout);
        view.settle(id, false, "");
        view.terminate();
    });
    view.setHtml("<p>One line</p><script>called()</script>");
    view.run();
    return 0;
}
