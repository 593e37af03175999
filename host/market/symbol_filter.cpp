#include "market/symbol_filter.h"

#include <algorithm>
#include <array>
#include <ranges>

namespace host {
namespace {

char small_letter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string small_letters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), small_letter);
    return small;
}

std::vector<std::string> words_of(const std::string& text) {
    std::vector<std::string> words;
    std::size_t end = 0;
    for (;;) {
        const std::size_t begin = text.find_first_not_of(" \t", end);
        if (begin == std::string::npos) {
            return words;
        }
        end = std::min(text.find_first_of(" \t", begin), text.size());
        words.push_back(text.substr(begin, end - begin));
    }
}

constexpr std::size_t rank_count = 3;

// 0 the name itself, 1 a name that begins so, 2 any other.
std::size_t rank(const std::string& name, const std::string& text) {
    return name == text ? 0 : !text.empty() && name.starts_with(text) ? 1 : 2;
}

// Unsigned, so that what is not ASCII comes behind it, in the order of its code points.
bool before(std::string_view a, std::string_view b) {
    const auto weight = [](char letter) { return static_cast<unsigned char>(small_letter(letter)); };
    return std::ranges::lexicographical_compare(a, b, {}, weight, weight);
}

}  // namespace

std::string_view cell_text(const instrument& one, symbol_column column) {
    switch (column) {
        case symbol_column::name:
            return one.name;
        case symbol_column::description:
            return one.description;
        case symbol_column::exchange:
            return one.exchange;
        case symbol_column::category:
            return kind_text(one.kind);
        case symbol_column::feed:
            return one.feed;
    }
    return "";
}

symbol_filter::symbol_filter(const symbol_store& store, const takes& may_show) {
    using enum symbol_column;
    m_entries.reserve(store.size());
    for (const instrument& one : store.all()) {
        if (may_show && !may_show(one)) {
            continue;
        }
        std::string text;
        for (const symbol_column column : {name, description, exchange, category, feed}) {
            // No typed word has a line end in it, so none is found across two cells.
            text.append(cell_text(one, column)).append("\n");
        }
        m_entries.push_back({&one, small_letters(text), small_letters(one.name)});
    }
}

symbol_filter::rows symbol_filter::match(std::string_view text, std::string_view feed) const {
    const std::string wanted = small_letters(text);
    const std::vector<std::string> words = words_of(wanted);
    std::array<rows, rank_count> ranked;
    for (const entry& each : m_entries) {
        const bool fits = (feed.empty() || each.one->feed == feed) &&
                          std::ranges::all_of(words, [&](const std::string& word) {
                              return each.text.find(word) != std::string::npos;
                          });
        if (fits) {
            ranked[rank(each.name, wanted)].push_back(each.one);
        }
    }
    rows found = std::move(ranked[0]);
    found.insert(found.end(), ranked[1].begin(), ranked[1].end());
    found.insert(found.end(), ranked[2].begin(), ranked[2].end());
    return found;
}

void symbol_filter::sort(rows& found, symbol_column column, bool descending) {
    struct place {
        const instrument* one;
        std::size_t index;
    };
    std::vector<place> places;
    for (const instrument* one : found) {
        places.push_back({one, places.size()});
    }
    std::ranges::sort(places, [&](const place& a, const place& b) {
        const std::string_view left = cell_text(*a.one, column);
        const std::string_view right = cell_text(*b.one, column);
        if (descending ? before(right, left) : before(left, right)) {
            return true;
        }
        return a.index < b.index && !(descending ? before(left, right) : before(right, left));
    });
    std::ranges::transform(places, found.begin(), &place::one);
}

}  // namespace host
