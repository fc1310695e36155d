// The methods that the program binds into the page of a child panel's window.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/page_methods.h"

namespace ravelin {

// What the methods need of the machine around them.
struct ChildServices {
    // To the main process.
    std::function<void(std::string_view method, std::string_view value)> forward;
    // Of this window.
    std::function<void(std::int32_t width, std::int32_t height)> resizeWindow;
    std::function<void()> beginDrag;
    std::function<void()> close;
    // What the main process last wrote down, as JSON; the empty text when nothing is known.
    std::function<std::string()> savedStatus;
    std::function<std::string()> savedSettings;
    std::function<Environment()> environment;
    // The page stands there as the user shall first see it.
    std::function<void()> pagePainted;
};

// In the order in which they are bound.
std::vector<PageMethod> childPageMethods(const ChildServices& services);

}  // namespace ravelin
