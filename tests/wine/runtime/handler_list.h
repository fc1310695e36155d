// The handlers that a host registered for one event, each under its token.
#pragma once

#include <eventtoken.h>

#include <utility>
#include <vector>

#include "com_object.h"

namespace ravelin::browser {

template <class HandlerType>
class HandlerList {
  public:
    HRESULT add(HandlerType* handler, EventRegistrationToken* token) {
        if (handler == nullptr || token == nullptr) return E_POINTER;
        token->value = ++last_;
        handlers_.emplace_back(last_, handler);
        return S_OK;
    }
    HRESULT remove(EventRegistrationToken token) {
        std::erase_if(handlers_, [token](const auto& entry) { return entry.first == token.value; });
        return S_OK;
    }
    // A handler may add and remove handlers, itself among them.
    template <class... Arguments>
    void invoke(Arguments... arguments) {
        const auto now = handlers_;
        for (const auto& [token, handler] : now)
            handler->Invoke(arguments...);
    }

  private:
    std::vector<std::pair<__int64, ComPtr<HandlerType>>> handlers_;
    __int64 last_ = 0;
};

}  // namespace ravelin::browser
