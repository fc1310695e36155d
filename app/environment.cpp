#include "app/environment.h"

#include "input/engine_state.h"
#include "support/json_object.h"

namespace ravelin {

std::string getEnvironment() {
    return JsonObject()
        .flag("hooksMissing", health.hooksMissing.load())
        .number("hooksPutBack", health.hooksPutBack.load())
        .number("refusedSends", health.refusedSends.load())
        .number("failures", health.failures.load())
        .finish();
}

}  // namespace ravelin
