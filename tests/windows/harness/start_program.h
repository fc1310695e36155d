// Another run of the test program.
#pragma once

#include <windows.h>

#include <string>

#include "support/win32_handles.h"

namespace ravelin::test {

// Starts the test program, or a copy of it, with a switch of its entry and a value. Empty, and a
// failure of the test with the reason, when it cannot be started.
ProcessHandle startProgram(const std::wstring& program, const std::wstring& option,
                           const std::wstring& value);

}  // namespace ravelin::test
