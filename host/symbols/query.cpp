#include "symbols/query.h"

#include <algorithm>
#include <utility>

#include "com/text.h"
#include "symbols/currency.h"
#include "symbols/table.h"

namespace host {
namespace {

bool is_second(const instrument& one) {
    return one.kind == instrument_kind::basket;
}

}  // namespace

HRESULT symbol_request::put_Symbol(LONG lReserved, LONG lSymbolId) noexcept {
    if (lReserved != 0 || lSymbolId < 0) {
        return E_INVALIDARG;
    }
    m_symbol_id = lSymbolId;
    return S_OK;
}

std::vector<const instrument*> symbol_query::rows(bool second) const {
    std::vector<const instrument*> found;
    for (const instrument& one : m_store.all()) {
        if (is_second(one) == second) {
            found.push_back(&one);
        }
    }
    return found;
}

HRESULT symbol_query::QuerySymbols(LONG, ISymbolRequest* pRequest, IovTable* pTable) noexcept {
    return guarded([&] {
        const ref<symbol_rows> table = query<symbol_rows>(pTable);
        const ref<symbol_wish> wish = query<symbol_wish>(pRequest);
        if (table == nullptr || (pRequest != nullptr && wish == nullptr)) {
            return E_INVALIDARG;
        }
        if (wish == nullptr || wish->symbol_id() == 0) {
            table->fill(m_store, rows(false), 0);
            return S_OK;
        }
        const instrument* one = m_store.find(wish->symbol_id());
        std::vector<const instrument*> found;
        if (one != nullptr && !is_second(*one)) {
            found.push_back(one);
        }
        table->fill(m_store, std::move(found), 0);
        return S_OK;
    });
}

HRESULT symbol_query::QuerySecondTable(LONG, LONG, IovTable* pTable) noexcept {
    return guarded([&] {
        const ref<symbol_rows> table = query<symbol_rows>(pTable);
        if (table == nullptr) {
            return E_INVALIDARG;
        }
        std::vector<const instrument*> found = rows(true);
        const auto last = std::ranges::find(found, m_last_id, &instrument::id);
        const std::size_t current = last == found.end() ? 0 : static_cast<std::size_t>(last - found.begin());
        table->fill(m_store, std::move(found), current);
        return S_OK;
    });
}

HRESULT symbol_query::get_DataFeedId(BSTR sDataFeed, LONG* pVal) noexcept {
    return guarded([&] {
        if (pVal == nullptr) {
            return E_POINTER;
        }
        *pVal = m_store.feed_number(bstr_text(sDataFeed));
        return S_OK;
    });
}

HRESULT symbol_query::get_ExchangeId(BSTR sExchange, LONG* pVal) noexcept {
    return guarded([&] {
        if (pVal == nullptr) {
            return E_POINTER;
        }
        *pVal = m_store.exchange_number(bstr_text(sExchange));
        return S_OK;
    });
}

HRESULT symbol_query::get_SymbolId(LONG lDataFeedId, BSTR sName, LONG lCategory, LONG lExchangeId, LONG, LONG,
                                   LONG, LONG* pVal) noexcept {
    return guarded([&] {
        if (pVal == nullptr) {
            return E_POINTER;
        }
        const std::string name = bstr_text(sName);
        m_last_id = symbol_id({name, m_store.feed_name(lDataFeedId), m_store.exchange_name(lExchangeId),
                               static_cast<int>(lCategory)});
        *pVal = m_last_id;
        return S_OK;
    });
}

int symbol_query::symbol_id(const symbol_key& key) const {
    // The store takes a missing part for "any"; here it is unknown and finds nothing.
    if (key.feed.empty() || key.exchange.empty()) {
        return 0;
    }
    const instrument* found = m_store.find(key);
    return found == nullptr || static_cast<int>(found->kind) != key.category ? 0 : found->id;
}

HRESULT symbol_query::get_Currency(LONG lKey, LONG* pVal) noexcept {
    if (pVal == nullptr) {
        return E_POINTER;
    }
    const int code = currency_code_of_key(lKey);
    if (code == 0) {
        return E_INVALIDARG;
    }
    *pVal = code;
    return S_OK;
}

}  // namespace host
