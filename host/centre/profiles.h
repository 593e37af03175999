// The paper profiles of the trading centre.
#pragma once

#include <TradingCenter.h>

#include <vector>

#include "centre/profile.h"

namespace host {

// The broker plug-ins that profiles can be made of.
const std::vector<std::string>& plugins();

class profiles : public object<ITC_TradingProfileS, IConnectionPointContainer> {
public:
    profiles(desk& paper, scheduler& later, profile::settings_view show_settings);

    // VT_UNKNOWN each, in the order in which they were made.
    STDMETHODIMP get_Items(SAFEARRAY** ppItems) noexcept override;
    STDMETHODIMP get_AvailablePlugins(SAFEARRAY** ppNames) noexcept override;
    // E_INVALIDARG for an unknown plug-in. A name that is taken gets a number.
    STDMETHODIMP Add(BSTR sPluginName, BSTR sProfileName) noexcept override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** out) noexcept override {
        return m_events.enumerate(out);
    }
    STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** out) noexcept override {
        return m_events.find(events, out);
    }

    const std::vector<ref<profile>>& items() const { return m_items; }

    // Disconnects the profile and takes it out. False when it isn't there.
    bool remove(const std::string& outer_id);

    // New quotes are there: each profile tells its own.
    void push_quotes();

private:
    std::shared_ptr<session> new_session(const std::string& plugin, const std::string& name);
    std::string free_name(const std::string& wanted) const;
    void append(std::shared_ptr<session> shared);
    void tell(ETM_ChangeTypeOfEvent kind, profile* one);

    desk& m_desk;
    scheduler& m_scheduler;
    profile::settings_view m_show_settings;
    std::vector<ref<profile>> m_items;
    event_source<ITC_ItemsChanged> m_events;
    int m_last_number = 0;
};

}  // namespace host
