#include <thread>

#include "app/shell.h"
#include "app/view_failure_message.h"

namespace ravelin {

void showViewFailure(const ViewFailure& failure) {
    std::thread([text = viewFailureText(failure)] { showError("Ravelin", text); }).join();
}

}  // namespace ravelin
