// What the symbol dialog shows: the rows that fit a typed text, in the order that was asked for.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "market/symbol_store.h"

namespace host {

enum class symbol_column { name, description, exchange, category, feed };

// The text of a cell.
std::string_view cell_text(const instrument& one, symbol_column column);

class symbol_filter {
public:
    using rows = std::vector<const instrument*>;
    using takes = std::function<bool(const instrument&)>;

    // Only the instruments that may_show takes are ever shown; all when there is none. The store has to
    // outlive the filter.
    explicit symbol_filter(const symbol_store& store, const takes& may_show = nullptr);

    // The instruments of the feed, of all feeds when it is empty, in which every word of the text occurs:
    // in name, description, exchange, category or feed, without regard to the case of ASCII letters. The
    // name itself comes first, then names that begin with the text, then the rest; each in file order.
    rows match(std::string_view text, std::string_view feed) const;

    // Sorts by a column, ASCII letters without regard to case; equal cells keep their order.
    static void sort(rows& found, symbol_column column, bool descending);

private:
    struct entry {
        const instrument* one;
        // All the cells in small letters, one per line.
        std::string text;
        std::string name;
    };

    std::vector<entry> m_entries;
};

}  // namespace host
