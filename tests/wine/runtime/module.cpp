#include "module.h"

namespace ravelin::browser {
namespace {

HMODULE moduleOf(DWORD flags) {
    HMODULE module = nullptr;
    GetModuleHandleExW(flags | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(&thisModule), &module);
    return module;
}

}  // namespace

HMODULE thisModule() {
    return moduleOf(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
}

void pinModule() {
    moduleOf(GET_MODULE_HANDLE_EX_FLAG_PIN);
}

std::wstring moduleFolder() {
    wchar_t path[MAX_PATH] = L"";
    const std::wstring full(path, GetModuleFileNameW(thisModule(), path, MAX_PATH));
    return full.substr(0, full.rfind(L'\\'));
}

}  // namespace ravelin::browser
