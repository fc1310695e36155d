// Handlers for the browser engine, made of callables. For the Windows half only.
#pragma once

#include <atomic>
#include <functional>
#include <utility>

#include "app/browser_interfaces_win32.h"

namespace ravelin {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Lives as long as the engine keeps it. What the callable throws ends here.
template <class... Arguments>
class CallingHandler final : public BrowserHandler<Arguments...> {
  public:
    using Action = std::function<void(Arguments...)>;

    CallingHandler(const GUID& id, Action action) : id_(id), action_(std::move(action)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        static constexpr GUID unknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (IsEqualGUID(id, unknown) == 0 && IsEqualGUID(id, id_) == 0) return E_NOINTERFACE;
        *object = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE invoke(Arguments... arguments) override {
        try {
            action_(arguments...);
        } catch (...) {
            return E_FAIL;
        }
        return S_OK;
    }

  private:
    ~CallingHandler() = default;

    GUID id_;
    Action action_;
    std::atomic<ULONG> references_{1};
};

#pragma GCC diagnostic pop

// A handler for as long as a call of the engine takes; the engine keeps what it needs for longer.
template <class... Arguments>
class HeldHandler {
  public:
    HeldHandler(const GUID& id, typename CallingHandler<Arguments...>::Action action)
        : handler_(new CallingHandler<Arguments...>(id, std::move(action))) {}
    HeldHandler(const HeldHandler&) = delete;
    HeldHandler& operator=(const HeldHandler&) = delete;
    ~HeldHandler() { handler_->Release(); }

    BrowserHandler<Arguments...>* get() const { return handler_; }

  private:
    CallingHandler<Arguments...>* handler_;
};

}  // namespace ravelin
