#include "updater/admin_only_security_win32.h"

namespace ravelin {

namespace {

constexpr DWORD fullAccess = FILE_ALL_ACCESS;
static_assert(fullAccess == 0x1F01FF);

AllocatedSid allocate(BYTE parts, DWORD first, DWORD second) {
    SID_IDENTIFIER_AUTHORITY authority = SECURITY_NT_AUTHORITY;
    PSID sid = nullptr;
    if (!AllocateAndInitializeSid(&authority, parts, first, second, 0, 0, 0, 0, 0, 0, &sid))
        return AllocatedSid();
    return AllocatedSid(sid);
}

DWORD entrySize(PSID sid) {
    return static_cast<DWORD>(sizeof(ACCESS_ALLOWED_ACE) - sizeof(DWORD)) + GetLengthSid(sid);
}

}  // namespace

AllocatedSid administratorsSid() {
    return allocate(2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS);
}

AdminOnlySecurity::AdminOnlySecurity()
    : administrators_(administratorsSid()), system_(allocate(1, SECURITY_LOCAL_SYSTEM_RID, 0)) {
    complete_ = build();
}

bool AdminOnlySecurity::build() {
    if (!administrators_ || !system_) return false;
    const DWORD size = static_cast<DWORD>(sizeof(ACL)) + entrySize(administrators_.get()) +
                       entrySize(system_.get());
    list_.reset(static_cast<PACL>(LocalAlloc(LPTR, size)));
    if (!list_ || !InitializeAcl(list_.get(), size, ACL_REVISION)) return false;
    for (const PSID sid : {administrators_.get(), system_.get()})
        if (!AddAccessAllowedAce(list_.get(), ACL_REVISION, fullAccess, sid)) return false;
    if (!InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION)) return false;
    if (!SetSecurityDescriptorDacl(&descriptor_, TRUE, list_.get(), FALSE)) return false;
    attributes_.nLength = sizeof attributes_;
    attributes_.lpSecurityDescriptor = &descriptor_;
    attributes_.bInheritHandle = FALSE;
    return true;
}

}  // namespace ravelin
