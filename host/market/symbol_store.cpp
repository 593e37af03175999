#include "market/symbol_store.h"

#include <algorithm>
#include <utility>

namespace host {
namespace {

constexpr int any_category = 0;
// What a record says that has no category.
constexpr int no_category = 254;

void note(std::vector<std::string>& names, const std::string& name) {
    if (!name.empty() && std::ranges::find(names, name) == names.end()) {
        names.push_back(name);
    }
}

int number_of(const std::vector<std::string>& names, std::string_view name) {
    const auto found = std::ranges::find(names, name);
    return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

std::string_view name_of(const std::vector<std::string>& names, int number) {
    return number < 1 || static_cast<std::size_t>(number) > names.size()
               ? std::string_view()
               : std::string_view(names[static_cast<std::size_t>(number) - 1]);
}

bool fits(const instrument& one, const symbol_key& key) {
    return one.feed == key.feed && (key.exchange.empty() || one.exchange == key.exchange) &&
           (key.category == any_category || key.category == no_category ||
            static_cast<int>(one.kind) == key.category);
}

}  // namespace

symbol_store::symbol_store(std::vector<instrument> all) : m_all(std::move(all)) {
    m_by_id.reserve(m_all.size());
    for (std::size_t index = 0; index < m_all.size(); ++index) {
        m_by_id.emplace(m_all[index].id, index);
        note(m_feeds, m_all[index].feed);
        note(m_exchanges, m_all[index].exchange);
    }
}

const instrument* symbol_store::find(int id) const {
    const auto found = m_by_id.find(id);
    return found == m_by_id.end() ? nullptr : &m_all[found->second];
}

const instrument* symbol_store::find(const symbol_key& key) const {
    const instrument* alike = nullptr;
    int exact_count = 0;
    int alike_count = 0;
    const instrument* exact = nullptr;
    for (const instrument& one : m_all) {
        if (!same_name(one.name, key.name) || !fits(one, key)) {
            continue;
        }
        alike = &one;
        ++alike_count;
        if (one.name == key.name) {
            exact = &one;
            ++exact_count;
        }
    }
    if (exact_count > 0) {
        return exact_count == 1 ? exact : nullptr;
    }
    return alike_count == 1 ? alike : nullptr;
}

int symbol_store::feed_number(std::string_view feed) const {
    return number_of(m_feeds, feed);
}

int symbol_store::exchange_number(std::string_view exchange) const {
    return number_of(m_exchanges, exchange);
}

std::string_view symbol_store::feed_name(int number) const {
    return name_of(m_feeds, number);
}

std::string_view symbol_store::exchange_name(int number) const {
    return name_of(m_exchanges, number);
}

}  // namespace host
