// How this engine behaves towards requests for a view, as a test has it at this moment.
#pragma once

#include <windows.h>

namespace ravelin::browser {

enum class Reception { served, refused, ignored };

struct EngineMood {
    Reception reception = Reception::served;
    HRESULT refusal = S_OK;
};

// What the file says that RAVELIN_TEST_ENGINE names by its Unix path: "refuse CODE", with the
// HRESULT in hexadecimal, or "silent" for no answer at all. Everything else, and no file, is an
// engine that serves. Read anew at each call, so that a test changes it while the host runs.
EngineMood engineMood();

}  // namespace ravelin::browser
