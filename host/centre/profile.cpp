#include "centre/profile.h"

#include "com/text.h"

namespace host {

profile::profile(desk& paper, scheduler& later, settings_view show_settings, std::shared_ptr<session> shared)
    : m_desk(paper),
      m_scheduler(later),
      m_show_settings(std::move(show_settings)),
      m_session(std::move(shared)),
      m_trading(make<manual_trading>(paper, m_session).get()),
      m_events(this),
      m_state(m_session->connect_delay == 0 ? eTM_CC_Connected : eTM_CC_Disconnected) {
    m_session->connected = m_state == eTM_CC_Connected;
    // Not within SetSymbol: whoever sets a symbol is not ready for its quote yet.
    m_session->on_symbol = [this] {
        m_scheduler.after(0, [self = ref<profile>(this)] { self->push_quote(); });
    };
}

profile::~profile() {
    m_session->on_symbol = [] {};
}

HRESULT profile::give(const std::string& text, BSTR* out) {
    return guarded([&] {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = to_bstr(text);
        return S_OK;
    });
}

HRESULT profile::get_Name(BSTR* pVal) noexcept {
    return give(m_session->name, pVal);
}
HRESULT profile::get_PluginName(BSTR* pVal) noexcept {
    return give(m_session->plugin, pVal);
}
HRESULT profile::get_OuterID(BSTR* pVal) noexcept {
    return give(m_session->outer_id, pVal);
}

HRESULT profile::get_ManualTrading(ITC_ManualTrading** ppVal) noexcept {
    if (ppVal == nullptr) {
        return E_POINTER;
    }
    hand_out(m_trading.get(), ppVal);
    return S_OK;
}

HRESULT profile::Connect() noexcept {
    return guarded([&] {
        if (m_state != eTM_CC_Disconnected) {
            return S_OK;
        }
        set_state(eTM_CC_Connecting);
        m_scheduler.after(m_session->connect_delay, [self = ref<profile>(this), attempt = ++m_attempt] {
            self->finish_connecting(attempt);
        });
        return S_OK;
    });
}

void profile::finish_connecting(unsigned attempt) {
    if (m_state != eTM_CC_Connecting || attempt != m_attempt) {
        return;
    }
    set_state(eTM_CC_Connected);
    push_quote();
}

HRESULT profile::Disconnect() noexcept {
    return guarded([&] {
        if (m_state != eTM_CC_Disconnected) {
            set_state(eTM_CC_Disconnected);
        }
        return S_OK;
    });
}

void profile::set_state(ETM_ConnectionChanged state) {
    m_state = state;
    m_session->connected = state == eTM_CC_Connected;
    m_desk.on_event(m_session->name + (state == eTM_CC_Connected    ? ": connected"
                                       : state == eTM_CC_Connecting ? ": connecting"
                                                                    : ": disconnected"));
    m_events.fire([&](ITC_TradingProfileDataChange* sink) { sink->OnConnectionState(state); });
}

HRESULT profile::ShowSettings(ULONGLONG hOwner) noexcept {
    return guarded([&] {
        profile_record settings = *m_session;
        if (m_show_settings(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(hOwner)), settings)) {
            m_session->accounts = settings.accounts;
            m_session->connect_delay = settings.connect_delay;
            m_session->reject_percent = settings.reject_percent;
            on_change();
        }
        return S_OK;
    });
}

HRESULT profile::get_HaveSettings(VARIANT_BOOL* pVal) noexcept {
    if (pVal == nullptr) {
        return E_POINTER;
    }
    *pVal = VARIANT_TRUE;
    return S_OK;
}

HRESULT profile::get_ConnectionState(ETM_ConnectionChanged* pVal) noexcept {
    if (pVal == nullptr) {
        return E_POINTER;
    }
    *pVal = m_state;
    return S_OK;
}

void profile::push_quote() {
    if (m_state != eTM_CC_Connected || m_session->instrument_id == 0) {
        return;
    }
    const quote& value = m_desk.get_quote(m_session->instrument_id);
    m_events.fire([&](ITC_TradingProfileDataChange* sink) { sink->OnQuote(value.bid, value.ask); });
}

}  // namespace host
