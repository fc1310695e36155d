#include "app/single_instance.h"
#include "support/win32_handles.h"

namespace ravelin {

struct SingleInstance::Lock {
    KernelHandle mutex;
    bool alreadyRunning = false;
};

SingleInstance::SingleInstance() : lock_(std::make_unique<Lock>()) {
    const HANDLE mutex = CreateMutexW(nullptr, TRUE, L"Local\\RavelinUI_SingleInstance");
    lock_->alreadyRunning = GetLastError() == ERROR_ALREADY_EXISTS;
    lock_->mutex.reset(mutex);
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::alreadyRunning() const {
    return lock_->alreadyRunning;
}

}  // namespace ravelin
