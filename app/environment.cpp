#include "app/environment.h"

#include "input/engine_state.h"
#include "support/json_object.h"

namespace ravelin {

std::string getEnvironment(const Environment& environment) {
    return JsonObject()
        .number("scale", static_cast<float>(environment.scale))
        .flag("buttonsSwapped", environment.buttonsSwapped)
        .text("themeKey", environment.themeKey)
        .flag("hooksMissing", health.hooksMissing.load())
        .number("hooksPutBack", health.hooksPutBack.load())
        .number("refusedSends", health.refusedSends.load())
        .number("failures", health.failures.load())
        .finish();
}

}  // namespace ravelin
