// Asks the browser engine whether it would give this program a view. For the Windows half only.
#pragma once

#include <cstdint>
#include <functional>

namespace ravelin {

// Asks for a view that is never shown, of the engine and with the data folder that the view library
// uses, and closes it again. `answered` gets the HRESULT: S_OK, or why there would be none. It is
// called from the thread's message loop, or at once when the engine cannot even be asked; an engine
// that stays silent never calls it.
void askEngine(std::function<void(std::uint32_t answer)> answered);

}  // namespace ravelin
