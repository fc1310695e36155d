// Starting a program with the rights of the user whose desktop it is. For the Windows half only.
#pragma once

#include <string>

namespace ravelin {

// Has the desktop's shell start the program in its own folder: with the rights, the environment and
// as a child of the shell, whatever the rights of this process. False when there is no shell or it
// cannot start it.
bool startByShell(const std::wstring& program);

}  // namespace ravelin
