// Putting a panel of the main page into a window, and a process, of its own.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace ravelin {

struct DetachServices {
    std::function<bool(std::string_view panelId)> isOut;
    // Whether the main process gets what a panel forwards.
    std::function<bool()> pipeIsServed;
    // Whether the browser engine is another than the one of the main window. It would refuse the
    // child a view for as long as the main window has one.
    std::function<bool()> engineUpdated;
    // The child reads the settings from the session file.
    std::function<void()> saveSession;
    std::string themeKey;  // for a page that names none
    // Starts this executable with the arguments and notes it as the process that shows the panel;
    // false when it cannot be started.
    std::function<bool(const std::string& panelId, const std::string& arguments)> start;
};

// `args` is the JSON array of title, panel id, screen x, screen y and theme key. The answer is the
// empty text, or a message for the user.
std::string detachPanel(const std::string& args, const DetachServices& services);

}  // namespace ravelin
