// The runtime's log file: one line an event, with the time and the process, so that several
// processes can share it.
#pragma once

#include <string>
#include <string_view>

namespace ravelin::browser {

// Chooses the file: the environment variable RAVELIN_TEST_BROWSER_LOG (a Unix path), else
// "browser.log" in the host's user-data folder. Lines logged before are kept and written then.
void openLog(const std::wstring& userDataFolder);

// Appends one line; safe from every thread.
void logLine(std::string_view line);

}  // namespace ravelin::browser
