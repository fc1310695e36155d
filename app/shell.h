// The few things that the program asks of the desktop's shell.
#pragma once

#include <string>

namespace ravelin {

// Opens the address with whatever the user opens such addresses with.
void openAddress(const std::string& address);

// A modal message with an error icon and an OK button. UTF-8.
void showError(const std::string& title, const std::string& text);

}  // namespace ravelin
