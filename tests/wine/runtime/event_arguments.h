// What the view's events tell their handlers.
#pragma once

#include <string>

#include "com_interfaces.h"
#include "com_object.h"

namespace ravelin::browser {

class WebMessageArguments final
    : public ComObject<ICoreWebView2WebMessageReceivedEventArgs, iidWebMessageReceivedEventArgs> {
  public:
    WebMessageArguments(std::string source, std::string json)
        : source_(std::move(source)), json_(std::move(json)) {}

    HRESULT STDMETHODCALLTYPE get_Source(LPWSTR* source) override;
    HRESULT STDMETHODCALLTYPE get_WebMessageAsJson(LPWSTR* json) override;
    // E_INVALIDARG when the page posted anything but a string.
    HRESULT STDMETHODCALLTYPE TryGetWebMessageAsString(LPWSTR* text) override;

  private:
    ~WebMessageArguments() override = default;

    std::string source_;
    std::string json_;
};

// The published kinds of failed processes, as far as this runtime reports them.
enum class FailedProcess : int { browser = 0, mainPage = 1 };

class ProcessFailedArguments final
    : public ComObject<ICoreWebView2ProcessFailedEventArgs, iidProcessFailedEventArgs> {
  public:
    explicit ProcessFailedArguments(FailedProcess process) : process_(process) {}

    HRESULT STDMETHODCALLTYPE get_ProcessFailedKind(int* kind) override;

  private:
    ~ProcessFailedArguments() override = default;

    FailedProcess process_;
};

class NavigationArguments final
    : public ComObject<ICoreWebView2NavigationCompletedEventArgs, iidNavigationCompletedEventArgs> {
  public:
    NavigationArguments(bool success, UINT64 id) : success_(success), id_(id) {}

    HRESULT STDMETHODCALLTYPE get_IsSuccess(BOOL* success) override;
    HRESULT STDMETHODCALLTYPE get_WebErrorStatus(int* status) override;
    HRESULT STDMETHODCALLTYPE get_NavigationId(UINT64* id) override;

  private:
    ~NavigationArguments() override = default;

    bool success_;
    UINT64 id_;
};

}  // namespace ravelin::browser
