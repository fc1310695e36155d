#include "app/page_binding.h"

namespace ravelin {

void bindPageMethods(WebView& view, const std::vector<PageMethod>& methods) {
    for (const PageMethod& method : methods) {
        view.bind(method.name, [&view, method](const std::string& callId, const std::string& args) {
            if (method.begin) {
                method.begin(callId);
                return;
            }
            const PageReply reply = callPageMethod(method, args);
            view.settle(callId, reply.rejected, reply.json);
        });
    }
}

}  // namespace ravelin
