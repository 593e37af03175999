// The host's symbol tables, with the objects that search them.
#pragma once

#include <map>
#include <memory>
#include <variant>
#include <vector>

#include "TradingCenter.h"
#include "tests/support/fake_class.h"

namespace test {

// A column's value; an empty one is a null text. The wrong reader gives DISP_E_TYPEMISMATCH.
using cell = std::variant<std::monostate, LONG, double, CString>;
using row = std::map<LONG, cell>;

// A row with a value in every column, and the name, the feed and the ids given.
row symbol_row(LONG id, const CString& name, const CString& feed = L"TradeNode", LONG feed_id = 7);

// What the host knows. Shared by its objects and the test.
struct symbol_store {
    std::vector<row> ordinary;
    std::vector<row> second;
    LONG feed_id = 0;
    LONG exchange_id = 0;
    LONG symbol_id = 0;
    // The currency of a row with the usual key.
    LONG currency = 840;
};

// Records `Table.get_Field(31)`, `Table.MoveFirst()`, `Table.MoveNext()`, `Table.get_EndOfTable()` and of
// its fields `Field("31").get_AsString()`. A filled table stands on its first row.
class FakeTable : public platform::com_root<IovTable> {
public:
    explicit FakeTable(fake_host host, std::vector<row> rows = {})
        : m_host(std::move(host)), m_rows(std::move(rows)) {}

    void fill(std::vector<row> rows, std::size_t current = 0);

    STDMETHODIMP get_Field(tagOVFIELDID id, IovField** ppVal) override;
    STDMETHODIMP MoveFirst() override;
    STDMETHODIMP MoveNext() override;
    STDMETHODIMP get_EndOfTable(VARIANT_BOOL* pVal) override;
    RESERVED_OPERATIONS_IovTable

        private : fake_host m_host;
    std::vector<row> m_rows;
    std::size_t m_current = 0;
};

// Records `Request.put_Symbol(0, 5)`.
class FakeRequest : public platform::com_root<ISymbolRequest> {
public:
    explicit FakeRequest(fake_host host) : m_host(std::move(host)) {}

    LONG symbol_id = 0;

    STDMETHODIMP put_Symbol(LONG lReserved, LONG lSymbolId) override;
    RESERVED_OPERATIONS_ISymbolRequest

        private : fake_host m_host;
};

// Query and currency lookup in one class. Records `Query.QuerySymbols(0, null, table)`, with `request` in
// place of null for one, `Query.QuerySecondTable(0, 0, table)`, `Query.get_DataFeedId("feed")`,
// `Query.get_ExchangeId("exchange")`, `Query.get_SymbolId(feed, "name", category, exchange, 0, 0, 0)` and
// `Currency.get_Currency(key)`. With a symbol's id the table stands on its row.
class FakeQuery : public platform::com_root<ISymbolQuery, ICurrencyLookup> {
public:
    FakeQuery(fake_host host, std::shared_ptr<symbol_store> store)
        : m_host(std::move(host)), m_store(std::move(store)) {}

    // What asking for ICurrencyLookup gives.
    bool has_currency = true;

    STDMETHODIMP QuerySymbols(LONG lReserved, ISymbolRequest* pRequest, IovTable* pTable) override;
    STDMETHODIMP QuerySecondTable(LONG lReserved1, LONG lReserved2, IovTable* pTable) override;
    STDMETHODIMP get_DataFeedId(BSTR sDataFeed, LONG* pVal) override;
    STDMETHODIMP get_ExchangeId(BSTR sExchange, LONG* pVal) override;
    STDMETHODIMP get_SymbolId(LONG lDataFeedId, BSTR sName, LONG lCategory, LONG lExchangeId, LONG lReserved1,
                              LONG lReserved2, LONG lReserved3, LONG* pVal) override;
    STDMETHODIMP get_Currency(LONG lKey, LONG* pVal) override;
    RESERVED_OPERATIONS_ISymbolQuery RESERVED_OPERATIONS_ICurrencyLookup

        protected : HRESULT
                    internal_query(REFIID iid, void** out);

private:
    void fill(IovTable* table, const std::vector<row>& rows, LONG id, LONG id_column) const;
    HRESULT give(const fake_host::outcome& told, LONG value, LONG* out) const;

    fake_host m_host;
    std::shared_ptr<symbol_store> m_store;
};

// The three classes on the thread that makes it, which must end it too. A class is absent when its name,
// "Query", "Table" or "Request", is in the list, and has no interface when it is in the other.
class symbol_classes {
public:
    struct gaps {
        std::vector<CString> absent;
        std::vector<CString> without_interface;
        bool without_currency = false;
    };
    symbol_classes(const fake_host& host, const std::shared_ptr<symbol_store>& store, const gaps& missing);

private:
    std::vector<std::unique_ptr<fake_class>> m_classes;
};

}  // namespace test
