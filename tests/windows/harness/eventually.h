// Waiting for a state of the system that announces itself to nobody.
#pragma once

#include <windows.h>

#include <chrono>

#include "tests/windows/harness/event_log.h"

namespace ravelin::test {

// Whether the condition comes to hold within the patience of a test.
template <class Condition>
bool eventually(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        Sleep(2);
    }
    return true;
}

}  // namespace ravelin::test
