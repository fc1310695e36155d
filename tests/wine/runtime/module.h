// This DLL as the loader knows it.
#pragma once

#include <windows.h>

#include <string>

namespace ravelin::browser {

HMODULE thisModule();

// The folder that the DLL lies in, without a final backslash.
std::wstring moduleFolder();

// This runtime's version, which the loader found it under: <version>\EBWebView\x64.
std::wstring engineVersion();

// Keeps the DLL loaded for the rest of the process: hosts free it after creating an environment.
void pinModule();

}  // namespace ravelin::browser
