#include "app/single_instance.h"
#include "support/win32_handles.h"

namespace ravelin {

struct SingleInstance::Lock {
    KernelHandle mutex;
    bool alreadyRunning = false;
};

SingleInstance::SingleInstance() : lock_(std::make_unique<Lock>()) {
    const HANDLE mutex = CreateMutexW(nullptr, TRUE, L"Local\\RavelinUI_SingleInstance");
    // Access is denied when the first instance runs elevated.
    const DWORD error = GetLastError();
    lock_->alreadyRunning =
        error == ERROR_ALREADY_EXISTS || (mutex == nullptr && error == ERROR_ACCESS_DENIED);
    lock_->mutex.reset(mutex);
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::alreadyRunning() const {
    return lock_->alreadyRunning;
}

}  // namespace ravelin
