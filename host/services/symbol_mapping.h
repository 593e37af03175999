// The symbol mapping as the bar asks for it.
#pragma once

#include <TradingCenter.h>

#include <functional>
#include <string>

#include "com/object.h"

namespace host {

class symbol_mapping_service : public object<ISymbolMapping> {
public:
    // show shows the mapping of a profile, by its name, modal on the owner.
    explicit symbol_mapping_service(std::function<void(HWND owner, const std::string& profile)> show)
        : m_show(std::move(show)) {}

    STDMETHODIMP ShowDialog(ULONGLONG hOwner, BSTR sProfileName) noexcept override;

private:
    std::function<void(HWND owner, const std::string& profile)> m_show;
};

}  // namespace host
