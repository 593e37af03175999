// Every instrument that is known, many more than are traded: what symbol lookups search.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "market/instruments.h"

namespace host {

// By what an order names its instrument. An empty exchange and a category of 0 or 254 stand for any.
struct symbol_key {
    std::string_view name;
    std::string_view feed;
    std::string_view exchange = {};
    int category = 0;
};

// Never changes once it is made, so that any thread may read it.
class symbol_store {
public:
    symbol_store() = default;
    // Ids have to be different from one another and above zero; of two equal ones the first counts.
    explicit symbol_store(std::vector<instrument> all);

    // In the order of the file.
    const std::vector<instrument>& all() const { return m_all; }
    std::size_t size() const { return m_all.size(); }

    // Null when there is none.
    const instrument* find(int id) const;
    // By exact name, or else without regard to the case of ASCII letters; null unless it is one alone.
    const instrument* find(const symbol_key& key) const;

    // Names of feeds and exchanges, in the order in which they first occur. A name's number is its place
    // from 1 on; the empty name is number 0, as is one that does not occur.
    const std::vector<std::string>& feeds() const { return m_feeds; }
    int feed_number(std::string_view feed) const;
    int exchange_number(std::string_view exchange) const;
    // Empty for a number that does not occur.
    std::string_view feed_name(int number) const;
    std::string_view exchange_name(int number) const;

private:
    std::vector<instrument> m_all;
    std::unordered_map<int, std::size_t> m_by_id;
    std::vector<std::string> m_feeds;
    std::vector<std::string> m_exchanges;
};

}  // namespace host
