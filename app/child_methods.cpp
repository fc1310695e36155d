#include "app/child_methods.h"

#include "app/page_arguments.h"
#include "support/text.h"

namespace ravelin {
namespace {

using Call = std::function<std::string(const std::string&)>;

Call forwardingValue(const ChildServices& services, const char* name) {
    return [forward = services.forward, name](const std::string& args) {
        forward(name, flattenArgs(args));
        return std::string();
    };
}

Call forwarding(const ChildServices& services, const char* name) {
    return [forward = services.forward, name](const std::string&) {
        forward(name, "");
        return std::string();
    };
}

Call acting(const std::function<void()>& action) {
    return [action](const std::string&) {
        action();
        return std::string();
    };
}

Call answering(const std::function<std::string()>& answer) {
    return [answer](const std::string&) { return answer(); };
}

}  // namespace

std::vector<PageMethod> childPageMethods(const ChildServices& services) {
    std::vector<PageMethod> methods;
    const auto add = [&methods](const char* name, Call call) {
        methods.push_back({name, std::move(call), {}});
    };
    for (const char* name : {"updateSpammer", "updateKeySpam", "removeKeySpamTarget",
                             "setKeySpamChordMode", "reassignKey"})
        add(name, forwardingValue(services, name));
    for (const char* name : {"startSpammer", "stopSpammer", "startKeySpam", "stopKeySpam"})
        add(name, forwarding(services, name));
    add("resizeWindow", [resize = services.resizeWindow](const std::string& args) {
        if (const auto size = readSizeArgument(args)) resize(size->width, size->height);
        return std::string();
    });
    add("beginWindowDrag", acting(services.beginDrag));
    add("closeThisWindow", acting(services.close));
    add("getTrackerStatus", answering(services.savedStatus));
    add("getSettings", answering(services.savedSettings));
    add("getEnvironment",
        answering([read = services.environment] { return getEnvironment(read()); }));
    add("pagePainted", acting(services.pagePainted));
    return methods;
}

}  // namespace ravelin
