// The security descriptor of the pipe, for the user and integrity level of this process.
#pragma once

#include "support/win32_handles.h"

namespace ravelin {

// Empty when the system does not tell what it takes.
LocalSecurityDescriptor makePipeSecurity();

}  // namespace ravelin
