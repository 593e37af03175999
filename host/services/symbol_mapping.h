// Shows which feed serves the symbols of a profile.
#pragma once

#include <TradingCenter.h>

#include <functional>
#include <string>

#include "com/object.h"

namespace host {

class symbol_mapping_service : public object<ISymbolMapping> {
public:
    // show shows a text, modal on the owner.
    explicit symbol_mapping_service(std::function<void(HWND owner, const std::string& text)> show)
        : m_show(std::move(show)) {}

    STDMETHODIMP ShowDialog(ULONGLONG hOwner, BSTR sProfileName) noexcept override;

private:
    std::function<void(HWND owner, const std::string& text)> m_show;
};

}  // namespace host
