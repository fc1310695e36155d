// The methods that the program binds into its main page. Thin: each unwraps its argument, sets a
// request flag or calls its owner, and returns. All of them run on the user-interface thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/environment.h"

namespace ravelin {

// Exactly one of the two callables is set.
struct PageMethod {
    std::string name;
    // Takes the JSON array of the script's arguments; returns the JSON value of the promise, or
    // the empty text for none. May throw: the error rejects the promise.
    std::function<std::string(const std::string& args)> call;
    // Takes the id of the call, which is settled later.
    std::function<void(const std::string& callId)> begin;
};

// How a call of a method is settled.
struct PageReply {
    bool rejected = false;
    std::string json;
};

// Calls the method and fences what escapes: the promise is rejected with the error's text.
PageReply callPageMethod(const PageMethod& method, const std::string& args);

// What the methods of the main window need of the machine around them.
struct MainWindowServices {
    std::function<void(std::int32_t width, std::int32_t height)> resizeWindow;
    std::function<void(const std::string& address)> openAddress;
    // Ids of the child panels that have ended since the last call.
    std::function<std::vector<std::string>()> collectEndedPanels;
    // Whether there are such ids, which the next call above will give.
    std::function<bool()> anyPanelEnded;
    std::function<void(const std::string& status)> writeStatusFile;
    std::function<void(const std::string& callId)> startUpdate;
    // Puts the panel into a window of its own; the answer is empty or a message for the user.
    std::function<std::string(const std::string& args)> detachPanel;
    std::function<Environment()> environment;
    // The page stands there as the user shall first see it.
    std::function<void()> pagePainted;
};

// The methods of the main window in the order in which they are bound.
std::vector<PageMethod> mainPageMethods(const MainWindowServices& services);

}  // namespace ravelin
