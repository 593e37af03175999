// A paper trading profile.
#pragma once

#include <TradingCenter.h>

#include <functional>
#include <memory>

#include "centre/manual_trading.h"
#include "centre/scheduler.h"
#include "com/connection_point.h"

namespace host {

class profile : public object<ITC_TradingProfile, IConnectionPointContainer> {
public:
    // Lets the user change the settings, modal on the owner; true when they are to be kept. Name, broker
    // and id stay.
    using settings_view = std::function<bool(HWND owner, profile_record& settings)>;

    // A profile whose connection takes no time starts connected.
    profile(desk& paper, scheduler& later, settings_view show_settings, std::shared_ptr<session> shared);

    STDMETHODIMP get_Name(BSTR* pVal) noexcept override;
    STDMETHODIMP get_PluginName(BSTR* pVal) noexcept override;
    STDMETHODIMP get_ManualTrading(ITC_ManualTrading** ppVal) noexcept override;
    STDMETHODIMP Connect() noexcept override;
    STDMETHODIMP Disconnect() noexcept override;
    STDMETHODIMP ShowSettings(ULONGLONG hOwner) noexcept override;
    STDMETHODIMP get_HaveSettings(VARIANT_BOOL* pVal) noexcept override;
    STDMETHODIMP get_ConnectionState(ETM_ConnectionChanged* pVal) noexcept override;
    STDMETHODIMP get_OuterID(BSTR* pVal) noexcept override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** out) noexcept override {
        return m_events.enumerate(out);
    }
    STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** out) noexcept override {
        return m_events.find(events, out);
    }

    // Tells the sinks the quote of the instrument last set; nothing without a connection or instrument.
    void push_quote();

    // Hears that the settings changed.
    std::function<void()> on_change = [] {};

    // Quotes no instrument until one is set again.
    void forget_symbol() { m_session->instrument_id = 0; }

    void rename(const std::string& name) { m_session->name = name; }

    const session& shared() const { return *m_session; }
    ETM_ConnectionChanged state() const { return m_state; }

private:
    ~profile() override;
    void set_state(ETM_ConnectionChanged state);
    void finish_connecting(unsigned attempt);
    HRESULT give(const std::string& text, BSTR* out);

    desk& m_desk;
    scheduler& m_scheduler;
    settings_view m_show_settings;
    std::shared_ptr<session> m_session;
    ref<ITC_ManualTrading> m_trading;
    event_source<ITC_TradingProfileDataChange> m_events;
    ETM_ConnectionChanged m_state;
    // Counts the calls of Connect: a connection that was given up meanwhile must not come up.
    unsigned m_attempt = 0;
};

}  // namespace host
