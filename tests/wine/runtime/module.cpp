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

std::wstring engineVersion() {
    const std::wstring folder = moduleFolder();
    const std::wstring above = folder.substr(0, folder.rfind(L'\\', folder.rfind(L'\\') - 1));
    return above.substr(above.rfind(L'\\') + 1);
}

}  // namespace ravelin::browser
