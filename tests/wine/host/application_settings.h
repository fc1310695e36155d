// The settings of an application's view, set through the engine's own interfaces.
#pragma once

namespace ravelin::browser_host {

// Switches the default context menu, zoom and the browser's own keys off and reads all three back.
// False when one of them is not there or did not keep its value. Takes the engine's controller.
bool useApplicationSettings(void* controller);

}  // namespace ravelin::browser_host
