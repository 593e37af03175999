// The trading centre as its masters see it.
#pragma once

#include <TradingCenter.h>

#include "centre/profiles.h"

namespace host {

// Each bar that creates the class holds one of these; all share the profiles and one counter.
class trading_centre : public object<ITC_TradingCenter> {
public:
    // The counter is kept by the application, which outlives every centre.
    trading_centre(ref<profiles> shared, LONG& masters) : m_profiles(std::move(shared)), m_masters(masters) {
        ++m_masters;
    }

    // Has to come before the profiles are asked for. The argument must be -1.
    STDMETHODIMP Prepare(LONG lReserved) noexcept override;
    // E_UNEXPECTED before Prepare.
    STDMETHODIMP get_TradingProfiles(ITC_TradingProfileS** ppVal) noexcept override;
    STDMETHODIMP get_MasterCounter(LONG* pVal) noexcept override;

private:
    ~trading_centre() override { --m_masters; }

    ref<profiles> m_profiles;
    LONG& m_masters;
    bool m_prepared = false;
};

}  // namespace host
