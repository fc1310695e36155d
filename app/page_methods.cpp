#include "app/page_methods.h"

#include <exception>
#include <utility>

#include "app/page_arguments.h"
#include "input/activity.h"
#include "input/capture.h"
#include "input/engine_state.h"
#include "input/key_spammer.h"
#include "input/requests.h"
#include "input/status.h"
#include "input/tool_settings.h"
#include "persistence/app_settings.h"
#include "persistence/profiles.h"
#include "product.h"
#include "support/text.h"

namespace ravelin {
namespace {

using Call = std::function<std::string(const std::string&)>;

// Most methods answer with the empty text.
template <class Action>
Call silent(Action action) {
    return [action = std::move(action)](const std::string& args) {
        action(args);
        return std::string();
    };
}

// Raises a request of the engine; the command thread carries it out.
Call request(Requests::Flag& flag) {
    return silent([&flag](const std::string&) { postRequest(flag); });
}

Call resize(const MainWindowServices& services) {
    return silent([resizeWindow = services.resizeWindow](const std::string& args) {
        if (const auto size = readSizeArgument(args)) resizeWindow(size->width, size->height);
    });
}

Call openLink(const MainWindowServices& services) {
    return silent([openAddress = services.openAddress](const std::string& args) {
        const std::string key = flattenArgs(args);
        if (key == "docs") openAddress(product::docsUrl);
        if (key == "discord") openAddress(product::chatUrl);
    });
}

Call trackerStatus(const MainWindowServices& services) {
    return [collect = services.collectEndedPanels,
            write = services.writeStatusFile](const std::string&) {
        std::string status = getTrackerStatus(collect());
        write(status);
        return status;
    };
}

Call detach(const MainWindowServices& services) {
    return [detachPanel = services.detachPanel](const std::string& args) {
        const std::string message = detachPanel(args);
        return message.empty() ? std::string() : jsonQuote(message);
    };
}

Call environment(const std::function<Environment()>& read) {
    return [read](const std::string&) { return getEnvironment(read()); };
}

}  // namespace

PageReply callPageMethod(const PageMethod& method, const std::string& args) {
    try {
        return {false, method.call(args)};
    } catch (const std::exception& error) {
        return {true, jsonQuote(error.what())};
    } catch (...) {
        return {true, jsonQuote("unknown error")};
    }
}

std::vector<PageMethod> mainPageMethods(const MainWindowServices& services) {
    const auto flattened = [](auto action) {
        return silent([action](const std::string& args) { action(flattenArgs(args)); });
    };
    return {
        {"resizeWindow", resize(services), {}},
        {"updateSpammer", flattened([](const std::string& text) { updateSpammer(text); }), {}},
        {"startSpammer", request(requests.clickerStart), {}},
        {"stopSpammer", request(requests.clickerStop), {}},
        {"updateKeySpam", flattened([](const std::string& text) { updateKeySpam(text); }), {}},
        {"startKeySpam", request(requests.keySpamStart), {}},
        {"stopKeySpam", request(requests.keySpamStop), {}},
        {"removeKeySpamTarget",
         flattened([](const std::string& index) { removeKeySpamTarget(index); }),
         {}},
        {"setKeySpamChordMode",
         flattened([](const std::string& value) { setKeySpamChordMode(value); }),
         {}},
        {"pickLocation", silent([](const std::string&) { pickLocation(); }), {}},
        {"getAppSettings", [](const std::string&) { return getAppSettings(); }, {}},
        {"markWarningSeen", silent([](const std::string& args) { markWarningSeen(args); }), {}},
        {"setAppSetting", silent([](const std::string& args) { setAppSetting(args); }), {}},
        {"setPanelOrder", silent([](const std::string& args) { setPanelOrder(args); }), {}},
        {"resetHotkeys", silent([](const std::string&) { resetHotkeys(); }), {}},
        {"openLink", openLink(services), {}},
        {"getTrackerStatus", trackerStatus(services), {}},
        {"clearProfile", silent([](const std::string&) { clearProfile(); }), {}},
        {"addProfile", silent([](const std::string& args) { addProfile(args); }), {}},
        {"deleteProfile", silent([](const std::string&) { deleteProfile(); }), {}},
        {"switchProfile", silent([](const std::string& args) { switchProfile(args); }), {}},
        {"getProfiles", [](const std::string&) { return getProfiles(); }, {}},
        {"startUpdate", {}, services.startUpdate},
        {"getSettings", [](const std::string&) { return getSettings(); }, {}},
        {"reassignKey", flattened([](const std::string& slot) { reassignKey(slot); }), {}},
        {"detachPanel", detach(services), {}},
        {"getActivity",
         [ended = services.anyPanelEnded](const std::string&) { return getActivity(ended()); },
         {}},
        {"getEnvironment", environment(services.environment), {}},
        {"pagePainted",
         silent([painted = services.pagePainted](const std::string&) { painted(); }),
         {}},
    };
}

}  // namespace ravelin
