#include "centre/profiles.h"

#include <algorithm>

#include "com/array.h"
#include "com/text.h"

namespace host {

profiles::profiles(desk& paper, scheduler& later, profile::settings_view show_settings,
                   const profile_list& first)
    : m_desk(paper),
      m_scheduler(later),
      m_show_settings(std::move(show_settings)),
      m_events(this),
      m_last_number(first.last_number) {
    for (const profile_record& record : first.profiles) {
        append(record);
    }
}

bool profiles::is_taken(const std::string& name) const {
    return std::ranges::any_of(m_items, [&](const ref<profile>& one) { return one->shared().name == name; });
}

std::string profiles::free_name(const std::string& wanted) const {
    std::string name = wanted;
    for (int number = 2; is_taken(name); ++number) {
        name = wanted + " " + std::to_string(number);
    }
    return name;
}

void profiles::append(const profile_record& record) {
    auto shared = std::make_shared<session>();
    static_cast<profile_record&>(*shared) = record;
    m_items.push_back(make<profile>(m_desk, m_scheduler, m_show_settings, std::move(shared)));
    m_items.back()->on_change = [this] { on_change(); };
}

HRESULT profiles::get_Items(SAFEARRAY** ppItems) noexcept {
    return guarded([&] {
        if (ppItems == nullptr) {
            return E_POINTER;
        }
        std::vector<ref<IUnknown>> all;
        for (const ref<profile>& one : m_items) {
            all.emplace_back(one->unknown());
        }
        *ppItems = make_array(all).release();
        return S_OK;
    });
}

HRESULT profiles::get_AvailablePlugins(SAFEARRAY** ppNames) noexcept {
    return guarded([&] {
        if (ppNames == nullptr) {
            return E_POINTER;
        }
        *ppNames = make_array(plugins()).release();
        return S_OK;
    });
}

HRESULT profiles::Add(BSTR sPluginName, BSTR sProfileName) noexcept {
    return guarded([&] {
        const std::string plugin = bstr_text(sPluginName);
        if (std::ranges::find(plugins(), plugin) == plugins().end()) {
            return E_INVALIDARG;
        }
        const std::string name = bstr_text(sProfileName);
        append(new_profile(plugin, free_name(name.empty() ? plugin : name), ++m_last_number));
        tell(eTM_CTOE_Added, m_items.back().get());
        return S_OK;
    });
}

std::vector<ref<profile>>::iterator profiles::place_of(const std::string& outer_id) {
    return std::ranges::find_if(m_items,
                                [&](const ref<profile>& one) { return one->shared().outer_id == outer_id; });
}

profile* profiles::find(const std::string& outer_id) const {
    const auto found = std::ranges::find_if(
        m_items, [&](const ref<profile>& one) { return one->shared().outer_id == outer_id; });
    return found == m_items.end() ? nullptr : found->get();
}

bool profiles::remove(const std::string& outer_id) {
    const auto found = place_of(outer_id);
    if (found == m_items.end()) {
        return false;
    }
    const ref<profile> removed = *found;
    removed->Disconnect();
    removed->on_change = [] {};
    m_items.erase(found);
    tell(eTM_CTOE_Deleted, removed.get());
    return true;
}

void profiles::remove_all() {
    for (const ref<profile>& one : std::exchange(m_items, {})) {
        one->Disconnect();
        one->on_change = [] {};
    }
    tell(eTM_CTOE_DeletedAll, nullptr);
}

bool profiles::rename(const std::string& outer_id, const std::string& name) {
    profile* const one = find(outer_id);
    if (one == nullptr || name.empty() || is_taken(name)) {
        return false;
    }
    m_desk.rename_profile(one->shared().name, name);
    one->rename(name);
    tell(eTM_CTOE_Updated, one);
    return true;
}

bool profiles::move(const std::string& outer_id, int step) {
    const auto found = place_of(outer_id);
    const auto index = found - m_items.begin() + step;
    if (found == m_items.end() || index < 0 || index >= static_cast<std::ptrdiff_t>(m_items.size())) {
        return false;
    }
    std::iter_swap(found, m_items.begin() + index);
    tell(eTM_CTOE_Moved, m_items[static_cast<std::size_t>(index)].get());
    return true;
}

void profiles::reload() {
    for (const ref<profile>& one : m_items) {
        one->forget_symbol();
    }
    tell(eTM_CTOE_ReloadStart, nullptr);
    tell(eTM_CTOE_ReloadComplete, nullptr);
}

profile_list profiles::list() const {
    profile_list all{m_last_number, {}};
    for (const ref<profile>& one : m_items) {
        all.profiles.push_back(one->shared());
    }
    return all;
}

void profiles::tell(ETM_ChangeTypeOfEvent kind, profile* one) {
    std::vector<ref<IUnknown>> concerned;
    if (one != nullptr) {
        concerned.emplace_back(one->unknown());
    }
    const array_ptr items = make_array(concerned);
    m_events.fire([&](ITC_ItemsChanged* sink) { sink->OnItemChanged(kind, items.get()); });
    on_change();
}

void profiles::push_quotes() {
    for (const ref<profile>& one : std::vector<ref<profile>>(m_items)) {
        one->push_quote();
    }
}

}  // namespace host
