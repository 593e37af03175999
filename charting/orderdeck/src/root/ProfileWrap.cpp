#include "charting/orderdeck/src/root/ProfileWrap.h"

#include "diagnostics/BugSlayerUtil.h"
#include "platform/com_create.h"

namespace OV_OrderDeck {

HRESULT CProfileWrap::connection::advise(IUnknown* sink, ITC_TradingProfile* profile) {
    return platform::advise(profile, sink, __uuidof(ITC_TradingProfileDataChange), m_pCP, m_dwCookie);
}

HRESULT CProfileWrap::connection::unadvise() {
    return platform::unadvise(m_pCP, m_dwCookie);
}

CProfileWrap::CProfileWrap(ITC_TradingProfile* pProfile) : m_pProfile(pProfile) {
    if (!m_pProfile) {
        BS_RAISE("", E_POINTER);
    }
}

bool CProfileWrap::Advise(IOD_ProfileDataChange* pSink) {
    const HRESULT hr = m_connection.advise(GetUnknown(), m_pProfile.get());
    if (!BS_ASSERT_TEXT(hr == S_OK, "S_OK == hr")) {
        return false;
    }
    m_pSink = pSink;
    return true;
}

void CProfileWrap::Unadvise() {
    if (m_pSink == nullptr) {
        return;
    }
    m_pSink = nullptr;
    const HRESULT hr = m_connection.unadvise();
    BS_ASSERT_OK(hr);
}

CString CProfileWrap::get_Name(bool) {
    if (m_sName.empty()) {
        _bstr_t name;
        const HRESULT hr = m_pProfile->get_Name(name.GetAddress());
        if (BS_ASSERT_TEXT(hr == S_OK, "S_OK == hr")) {
            m_sName = platform::text_of(name);
        }
    }
    return m_sName;
}

CString CProfileWrap::get_PluginName(bool) {
    if (m_sPluginName.empty()) {
        _bstr_t name;
        const HRESULT hr = m_pProfile->get_PluginName(name.GetAddress());
        if (BS_ASSERT_TEXT(hr == S_OK, "S_OK == hr")) {
            m_sPluginName = platform::text_of(name);
        }
    }
    return m_sPluginName;
}

CString CProfileWrap::get_OuterID() {
    _bstr_t id;
    const HRESULT hr = m_pProfile->get_OuterID(id.GetAddress());
    return BS_ASSERT_TEXT(hr == S_OK, "S_OK == hr") ? platform::text_of(id) : CString();
}

ETM_ConnectionChanged CProfileWrap::get_ConnectionState(bool bCached) {
    if (bCached && m_bStateKnown) {
        return m_eState;
    }
    ETM_ConnectionChanged state = eTM_CC_Disconnected;
    const HRESULT hr = m_pProfile->get_ConnectionState(&state);
    BS_ASSERT_TEXT(hr == S_OK, "S_OK == hr");
    // Known also after a failure: the host is not asked again and again for what it can't tell.
    m_eState = state;
    m_bStateKnown = true;
    return m_eState;
}

void CProfileWrap::Connect() {
    if (get_ConnectionState(false) == eTM_CC_Connected) {
        return;
    }
    // The value that the live question has just left in the cache.
    if (get_ConnectionState(true) == eTM_CC_Connecting) {
        return;
    }
    const HRESULT hr = m_pProfile->Connect();
    BS_ASSERT_OK(hr);
}

bool CProfileWrap::user_agrees(HWND hParent, ITC_TradingProfile* pProfile) {
    com_ptr<IDisconnectConfirmer> confirmer;
    const HRESULT hr = platform::create_running(CLSID_DisconnectConfirmer, confirmer);
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(BS_HERE, "SUCCEEDED(hr)", hr);
        _com_issue_error(hr);
    }
    const auto owner = static_cast<LONG>(reinterpret_cast<ULONG_PTR>(hParent) & 0xFFFFFFFF);
    // S_FALSE is the one refusal; a confirmer that fails has not refused.
    return confirmer->Confirm(owner, pProfile) != S_FALSE;
}

bool CProfileWrap::Disconnect(HWND hParent) {
    if (get_ConnectionState(false) != eTM_CC_Connected && get_ConnectionState(true) != eTM_CC_Connecting) {
        return true;
    }
    if (hParent != nullptr && !user_agrees(hParent, m_pProfile.get())) {
        return false;
    }
    const HRESULT hr = m_pProfile->Disconnect();
    BS_ASSERT_OK(hr);
    // True also when the host failed: only the user can keep a profile connected.
    return true;
}

HRESULT CProfileWrap::ShowSettings(ULONGLONG hOwner) {
    const HRESULT hr = m_pProfile->ShowSettings(hOwner);
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(BS_HERE, "SUCCEEDED(hr)", hr);
    }
    return hr;
}

bool CProfileWrap::HaveSettings(bool) {
    if (m_eHaveSettings == not_asked) {
        VARIANT_BOOL have = VARIANT_FALSE;
        const HRESULT hr = m_pProfile->get_HaveSettings(&have);
        BS_ASSERT_TEXT(hr == S_OK, "S_OK == hr");
        // Exactly VARIANT_TRUE counts, not just any value but 0.
        m_eHaveSettings = static_cast<USHORT>(have) > 65534 ? yes : no;
    }
    return m_eHaveSettings == yes;
}

com_ptr<ITC_ManualTrading> CProfileWrap::get_ManualTrading() {
    com_ptr<ITC_ManualTrading> trading;
    const HRESULT hr = m_pProfile->get_ManualTrading(platform::receive(trading));
    BS_ASSERT_OK(hr);
    return trading;
}

HRESULT CProfileWrap::OnQuote(double bid, double ask) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&] { return m_pSink ? m_pSink->OnQuote(bid, ask) : S_OK; });
}

HRESULT CProfileWrap::OnConnectionState(ETM_ConnectionChanged state) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&] {
        m_eState = state;
        m_bStateKnown = true;
        return m_pSink ? m_pSink->OnConnectionState(state) : S_OK;
    });
}

HRESULT CProfileWrap::OnTradingAllowed(VARIANT_BOOL bAllowed) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&] {
        const bool allowed = static_cast<USHORT>(bAllowed) == 0xFFFF;
        return m_pSink ? m_pSink->OnTradingAllowed(allowed) : S_OK;
    });
}

HRESULT CProfileWrap::OnStatusText(BSTR sText) noexcept {
    return BugSlayerUtil::guard(BS_HERE, [&] { return m_pSink ? m_pSink->OnStatusText(sText) : S_OK; });
}

}  // namespace OV_OrderDeck
