// The queries that fill symbol tables from the store.
#pragma once

#include <SymbolStore.h>

#include "com/object.h"
#include "market/symbol_store.h"

namespace host {

// By which a query reads a request of its own kind.
MIDL_INTERFACE("0f7a4c1e-93d5-4f6b-9a7e-6d2b1c8e4f53")
symbol_wish : public IUnknown {
    // 0 for all symbols.
    virtual LONG symbol_id() const = 0;
};

}  // namespace host

__CRT_UUID_DECL(host::symbol_wish, 0x0f7a4c1e, 0x93d5, 0x4f6b, 0x9a, 0x7e, 0x6d, 0x2b, 0x1c, 0x8e, 0x4f, 0x53)

namespace host {

class symbol_request : public object<ISymbolRequest, symbol_wish> {
public:
    STDMETHODIMP put_Symbol(LONG lReserved, LONG lSymbolId) noexcept override;
    RESERVED_OPERATIONS_ISymbolRequest

        LONG
        symbol_id() const override {
        return m_symbol_id;
    }

private:
    LONG m_symbol_id = 0;
};

// The query, and the currencies by the keys of its rows. Baskets are the second table, all others the
// ordinary one.
class symbol_query : public object<ISymbolQuery, ICurrencyLookup> {
public:
    // The store has to outlive the query and the tables that it fills.
    explicit symbol_query(const symbol_store& store) : m_store(store) {}

    // E_INVALIDARG for tables and requests of other makers. A request for a symbol that is not in the table
    // leaves it empty.
    STDMETHODIMP QuerySymbols(LONG lReserved, ISymbolRequest* pRequest, IovTable* pTable) noexcept override;
    STDMETHODIMP QuerySecondTable(LONG lReserved1, LONG lReserved2, IovTable* pTable) noexcept override;
    STDMETHODIMP get_DataFeedId(BSTR sDataFeed, LONG* pVal) noexcept override;
    STDMETHODIMP get_ExchangeId(BSTR sExchange, LONG* pVal) noexcept override;
    STDMETHODIMP get_SymbolId(LONG lDataFeedId, BSTR sName, LONG lCategory, LONG lExchangeId, LONG lReserved1,
                              LONG lReserved2, LONG lReserved3, LONG* pVal) noexcept override;
    RESERVED_OPERATIONS_ISymbolQuery

        // E_INVALIDARG for an unknown key.
        STDMETHODIMP
        get_Currency(LONG lKey, LONG* pVal) noexcept override;
    RESERVED_OPERATIONS_ICurrencyLookup

        private : int
                  symbol_id(const symbol_key& key) const;
    std::vector<const instrument*> rows(bool second) const;

    const symbol_store& m_store;
    // The id last given, which the second table begins with.
    LONG m_last_id = 0;
};

}  // namespace host
