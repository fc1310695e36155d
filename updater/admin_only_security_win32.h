// The protection of a downloaded installer: full access for administrators and the system, none for
// anybody else. For the Windows half only.
#pragma once

#include <windows.h>

#include "support/win32_handles.h"

namespace ravelin {

// Security attributes for one creation of a folder or file. They and everything they point to live
// as long as the object, which therefore stays where it is.
class AdminOnlySecurity {
  public:
    AdminOnlySecurity();
    AdminOnlySecurity(const AdminOnlySecurity&) = delete;
    AdminOnlySecurity& operator=(const AdminOnlySecurity&) = delete;

    // Whether everything could be built; only then the attributes are of use.
    explicit operator bool() const { return complete_; }
    SECURITY_ATTRIBUTES& attributes() { return attributes_; }

  private:
    bool build();

    AllocatedSid administrators_;
    AllocatedSid system_;
    LocalAcl list_;
    SECURITY_DESCRIPTOR descriptor_{};
    SECURITY_ATTRIBUTES attributes_{};
    bool complete_ = false;
};

// The built-in Administrators group; empty on failure.
AllocatedSid administratorsSid();

}  // namespace ravelin
