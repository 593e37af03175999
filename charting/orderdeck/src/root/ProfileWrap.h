#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/interface/IOD_ProfileDataChange.h"
#include "platform/com_object.h"
#include "platform/connection_point.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// One trading profile of the host, as the bar sees it: remembers what is slow to ask, turns a failing
// host call into a report, and forwards the profile's events to one tab. Made as a platform::com_object.
// All operations belong on the bar's thread; events come on the thread of the host's call.
class CProfileWrap : public platform::com_root<ITC_TradingProfileDataChange> {
public:
    // Throws _com_error (E_POINTER) for a null profile.
    explicit CProfileWrap(ITC_TradingProfile* pProfile);

    // Subscribes to the profile's events. The sink is not counted and must stay until Unadvise. False
    // when the host refused; the sink is then as before.
    bool Advise(IOD_ProfileDataChange* pSink);
    void Unadvise();

    // Asked of the host once and then kept for ever, a rename included; empty, and asked again next
    // time, when the host failed. The arguments have no effect.
    CString get_Name(bool);
    CString get_PluginName(bool);
    // Asks the host at each call. Empty when it failed.
    CString get_OuterID();
    // bCached: the last known state is enough. eTM_CC_Disconnected when the host gave none.
    ETM_ConnectionChanged get_ConnectionState(bool bCached);
    // Starts connecting unless the profile is connected or about to be.
    void Connect();
    // False only when the user refused; true also when the host failed. A null parent disconnects
    // without a question. Throws _com_error when the confirmer can't be made.
    bool Disconnect(HWND hParent);
    // Modal on the owner.
    HRESULT ShowSettings(ULONGLONG hOwner);
    // Asked of the host once. The argument has no effect.
    bool HaveSettings(bool);
    // Asks the host at each call; null when it has none or failed.
    com_ptr<ITC_ManualTrading> get_ManualTrading();

    STDMETHODIMP OnQuote(double bid, double ask) noexcept override;
    STDMETHODIMP OnConnectionState(ETM_ConnectionChanged state) noexcept override;
    STDMETHODIMP OnTradingAllowed(VARIANT_BOOL bAllowed) noexcept override;
    STDMETHODIMP OnStatusText(BSTR sText) noexcept override;

private:
    // Where the wrapper is advised. Undone last when a wrapper dies, after the profile was released.
    class connection {
    public:
        ~connection() { unadvise(); }
        HRESULT advise(IUnknown* sink, ITC_TradingProfile* profile);
        HRESULT unadvise();

    private:
        com_ptr<IConnectionPoint> m_pCP;
        DWORD m_dwCookie = platform::not_advised;
    };

    enum tri_state : BYTE { no = 0, yes = 1, not_asked = 2 };

    static bool user_agrees(HWND hParent, ITC_TradingProfile* pProfile);

    connection m_connection;
    com_ptr<ITC_TradingProfile> m_pProfile;
    IOD_ProfileDataChange* m_pSink = nullptr;
    ETM_ConnectionChanged m_eState = ETM_ConnectionChanged{};
    bool m_bStateKnown = false;
    tri_state m_eHaveSettings = not_asked;
    CString m_sPluginName;
    CString m_sName;
    // Nothing reads it; the layout of the object keeps it on purpose.
    [[maybe_unused]] LONG m_eReserved = 2;
};

}  // namespace OV_OrderDeck
