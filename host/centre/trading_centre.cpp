#include "centre/trading_centre.h"

namespace host {

HRESULT trading_centre::Prepare(LONG lReserved) noexcept {
    if (lReserved != -1) {
        return E_INVALIDARG;
    }
    m_prepared = true;
    return S_OK;
}

HRESULT trading_centre::get_TradingProfiles(ITC_TradingProfileS** ppVal) noexcept {
    if (ppVal == nullptr) {
        return E_POINTER;
    }
    *ppVal = nullptr;
    if (!m_prepared) {
        return E_UNEXPECTED;
    }
    hand_out<ITC_TradingProfileS>(m_profiles.get(), ppVal);
    return S_OK;
}

HRESULT trading_centre::get_MasterCounter(LONG* pVal) noexcept {
    if (pVal == nullptr) {
        return E_POINTER;
    }
    *pVal = m_masters;
    return S_OK;
}

}  // namespace host
