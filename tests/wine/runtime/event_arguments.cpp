#include "event_arguments.h"

#include <nlohmann/json.hpp>

namespace ravelin::browser {
namespace {

HRESULT give(const std::string& text, LPWSTR* place) {
    if (place == nullptr) return E_POINTER;
    *place = comText(text);
    return *place == nullptr ? E_OUTOFMEMORY : S_OK;
}

template <class T>
HRESULT give(T value, T* place) {
    if (place == nullptr) return E_POINTER;
    *place = value;
    return S_OK;
}

// The published "unknown" and "connection aborted" statuses.
constexpr int noError = 0;
constexpr int connectionAborted = 9;

}  // namespace

HRESULT STDMETHODCALLTYPE WebMessageArguments::get_Source(LPWSTR* source) {
    return give(source_, source);
}

HRESULT STDMETHODCALLTYPE WebMessageArguments::get_WebMessageAsJson(LPWSTR* json) {
    return give(json_, json);
}

HRESULT STDMETHODCALLTYPE WebMessageArguments::TryGetWebMessageAsString(LPWSTR* text) {
    const auto value = nlohmann::json::parse(json_, nullptr, false);
    if (!value.is_string()) return E_INVALIDARG;
    return give(value.get<std::string>(), text);
}

HRESULT STDMETHODCALLTYPE ProcessFailedArguments::get_ProcessFailedKind(int* kind) {
    return give(static_cast<int>(process_), kind);
}

HRESULT STDMETHODCALLTYPE NavigationArguments::get_IsSuccess(BOOL* success) {
    return give<BOOL>(success_ ? TRUE : FALSE, success);
}

HRESULT STDMETHODCALLTYPE NavigationArguments::get_WebErrorStatus(int* status) {
    return give(success_ ? noError : connectionAborted, status);
}

HRESULT STDMETHODCALLTYPE NavigationArguments::get_NavigationId(UINT64* id) {
    return give(id_, id);
}

}  // namespace ravelin::browser
