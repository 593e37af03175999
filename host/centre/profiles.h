// The paper profiles of the trading centre.
#pragma once

#include <TradingCenter.h>

#include <vector>

#include "centre/profile.h"

namespace host {

class profiles : public object<ITC_TradingProfileS, IConnectionPointContainer> {
public:
    profiles(desk& paper, scheduler& later, profile::settings_view show_settings,
             const profile_list& first = default_profiles());

    // Hears of every change that a file of profiles would show.
    std::function<void()> on_change = [] {};

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

    // Null when it isn't there.
    profile* find(const std::string& outer_id) const;

    const std::vector<ref<profile>>& items() const { return m_items; }

    // Disconnects the profile and takes it out. False when it isn't there.
    bool remove(const std::string& outer_id);

    // Takes all out.
    void remove_all();

    // False when the profile isn't there, or the name is empty or another's. Who shows the old name may go
    // on with it until a reload.
    bool rename(const std::string& outer_id, const std::string& name);

    // By one place up (-1) or down (1). False when the profile isn't there or stands at the end.
    bool move(const std::string& outer_id, int step);

    // Says that all profiles are to be read anew. Who reads them sets their symbols anew, too.
    void reload();

    // As a file keeps them.
    profile_list list() const;

    // New quotes are there: each profile tells its own.
    void push_quotes();

private:
    bool is_taken(const std::string& name) const;
    std::string free_name(const std::string& wanted) const;
    void append(const profile_record& record);
    // Null for an event about all.
    void tell(ETM_ChangeTypeOfEvent kind, profile* one);
    std::vector<ref<profile>>::iterator place_of(const std::string& outer_id);

    desk& m_desk;
    scheduler& m_scheduler;
    profile::settings_view m_show_settings;
    std::vector<ref<profile>> m_items;
    event_source<ITC_ItemsChanged> m_events;
    int m_last_number = 0;
};

}  // namespace host
