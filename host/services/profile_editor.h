// The profile editor as the bar asks for it.
#pragma once

#include <TradingCenter.h>

#include <functional>

#include "com/object.h"

namespace host {

class profile_editor : public object<IProfileEditor> {
public:
    // show runs the editor, modal on the owner.
    explicit profile_editor(std::function<void(HWND owner)> show) : m_show(std::move(show)) {}

    STDMETHODIMP Show(ULONGLONG hOwner) noexcept override {
        return guarded([&] {
            m_show(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(hOwner)));
            return S_OK;
        });
    }

private:
    std::function<void(HWND owner)> m_show;
};

}  // namespace host
