// Asks before a profile with live orders is disconnected.
#pragma once

#include <TradingCenter.h>

#include <functional>
#include <string>
#include <vector>

#include "com/object.h"
#include "market/desk.h"

namespace host {

class disconnect_confirmer : public object<IDisconnectConfirmer> {
public:
    // Asks whether a profile with these live orders may be disconnected, modal on the owner.
    using question =
        std::function<bool(HWND owner, const std::string& profile, const std::vector<order>& live)>;

    disconnect_confirmer(desk& paper, question ask) : m_desk(paper), m_ask(std::move(ask)) {}

    // S_OK with no question when no order of the profile is live.
    STDMETHODIMP Confirm(LONG hOwner, ITC_TradingProfile* pProfile) noexcept override;

private:
    desk& m_desk;
    question m_ask;
};

}  // namespace host
