// What every COM object of this runtime shares: the reference count and QueryInterface over a list
// of interface ids that all name the same vtable chain.
#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <string>

#include "log.h"
#include "wide_text.h"

namespace ravelin::browser {

using Microsoft::WRL::ComPtr;

inline constexpr IID iidUnknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

template <class Interface, const IID&... ids>
class ComObject : public Interface {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (!(IsEqualIID(id, iidUnknown) || ... || IsEqualIID(id, ids))) {
            logLine("no interface " + guidText(id));
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const auto left = static_cast<ULONG>(InterlockedDecrement(&references_));
        if (left == 0) delete this;
        return left;
    }

  protected:
    virtual ~ComObject() = default;

  private:
    volatile LONG references_ = 1;
};

// A new object with the one reference that the pointer holds.
template <class T, class... Arguments>
ComPtr<T> makeCom(Arguments&&... arguments) {
    ComPtr<T> made;
    made.Attach(new T(std::forward<Arguments>(arguments)...));
    return made;
}

}  // namespace ravelin::browser
