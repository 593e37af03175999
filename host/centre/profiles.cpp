#include "centre/profiles.h"

#include <algorithm>

#include "com/array.h"
#include "com/text.h"

namespace host {
namespace {

const std::string instant = "OrderDeck Paper";
const std::string remote = "OrderDeck Paper Remote";
constexpr unsigned remote_delay = 1500;

}  // namespace

const std::vector<std::string>& plugins() {
    static const std::vector<std::string> names{instant, remote};
    return names;
}

profiles::profiles(desk& paper, scheduler& later, profile::settings_view show_settings)
    : m_desk(paper), m_scheduler(later), m_show_settings(std::move(show_settings)), m_events(this) {
    append(new_session(instant, "Paper"));
    append(new_session(remote, "Paper Remote"));
}

std::shared_ptr<session> profiles::new_session(const std::string& plugin, const std::string& name) {
    auto made = std::make_shared<session>();
    const std::string number = std::to_string(++m_last_number);
    made->outer_id = "orderdeck-paper-" + number;
    made->name = free_name(name);
    made->plugin = plugin;
    made->connect_delay = plugin == remote ? remote_delay : 0;
    made->accounts = {"DEMO-" + number + "01", "DEMO-" + number + "02", "模擬帳戶-" + number};
    return made;
}

std::string profiles::free_name(const std::string& wanted) const {
    const auto taken = [&](const std::string& name) {
        return std::ranges::any_of(m_items,
                                   [&](const ref<profile>& one) { return one->shared().name == name; });
    };
    std::string name = wanted;
    for (int number = 2; taken(name); ++number) {
        name = wanted + " " + std::to_string(number);
    }
    return name;
}

void profiles::append(std::shared_ptr<session> shared) {
    m_items.push_back(make<profile>(m_desk, m_scheduler, m_show_settings, std::move(shared)));
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
        append(new_session(plugin, name.empty() ? plugin : name));
        tell(eTM_CTOE_Added, m_items.back().get());
        return S_OK;
    });
}

bool profiles::remove(const std::string& outer_id) {
    const auto found = std::ranges::find_if(
        m_items, [&](const ref<profile>& one) { return one->shared().outer_id == outer_id; });
    if (found == m_items.end()) {
        return false;
    }
    const ref<profile> removed = *found;
    removed->Disconnect();
    m_items.erase(found);
    tell(eTM_CTOE_Deleted, removed.get());
    return true;
}

void profiles::tell(ETM_ChangeTypeOfEvent kind, profile* one) {
    const array_ptr items = make_array({ref<IUnknown>(one->unknown())});
    m_events.fire([&](ITC_ItemsChanged* sink) { sink->OnItemChanged(kind, items.get()); });
}

void profiles::push_quotes() {
    for (const ref<profile>& one : std::vector<ref<profile>>(m_items)) {
        one->push_quote();
    }
}

}  // namespace host
