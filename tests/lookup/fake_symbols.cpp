#include "tests/lookup/fake_symbols.h"

#include <algorithm>

namespace test {

namespace {

constexpr LONG usual_key = 3;

std::string list(std::initializer_list<LONG> numbers) {
    std::string text;
    for (const LONG number : numbers) {
        text += (text.empty() ? "" : ", ") + std::to_string(number);
    }
    return text;
}

// A field's value as it was when the table gave it.
class FakeField : public platform::com_root<IovField> {
public:
    FakeField(fake_host host, LONG id, cell value)
        : m_host(std::move(host)), m_id(std::to_wstring(id)), m_value(std::move(value)) {}

    STDMETHODIMP get_AsLong(LONG* pVal) override { return give<LONG>("get_AsLong", pVal); }
    STDMETHODIMP get_AsDouble(double* pVal) override { return give<double>("get_AsDouble", pVal); }
    STDMETHODIMP get_AsString(BSTR* pVal) override {
        const auto told = m_host.enter("Field", m_id, "get_AsString");
        if (!told.write || std::holds_alternative<std::monostate>(m_value)) {
            return told.hr;
        }
        const CString* const text = std::get_if<CString>(&m_value);
        if (text == nullptr) {
            return DISP_E_TYPEMISMATCH;
        }
        *pVal = platform::new_bstr(*text);
        return told.hr;
    }

private:
    template <class Value>
    HRESULT give(const char* operation, Value* out) {
        const auto told = m_host.enter("Field", m_id, operation);
        const Value* const value = std::get_if<Value>(&m_value);
        if (told.write && value != nullptr) {
            *out = *value;
        }
        return value == nullptr && SUCCEEDED(told.hr) ? DISP_E_TYPEMISMATCH : told.hr;
    }

    fake_host m_host;
    CString m_id;
    cell m_value;
};

// Of a class that is something else.
class stranger : public platform::com_root<IDisconnectConfirmer> {
public:
    STDMETHODIMP Confirm(LONG, ITC_TradingProfile*) override { return E_NOTIMPL; }
};

}  // namespace

row symbol_row(LONG id, const CString& name, const CString& feed, LONG feed_id) {
    return {{5, LONG{2}},
            {17, CString(L"NYSE")},
            {31, name},
            {32, 125.5},
            {62, name + L" text"},
            {102, LONG{45000}},
            {190, LONG{4}},
            {207, feed_id},
            {208, feed},
            {209, name + L" root"},
            {217, 50.0},
            {218, 2.0},
            {224, LONG{1}},
            {1013, usual_key},
            {1015, CString(L"EST")},
            {1016, id},
            {1102, id + 1000}};
}

void FakeTable::fill(std::vector<row> rows, std::size_t current) {
    m_rows = std::move(rows);
    m_current = current;
}

STDMETHODIMP FakeTable::get_Field(tagOVFIELDID id, IovField** ppVal) {
    const auto told = m_host.enter("Table", {}, "get_Field", std::to_string(id));
    if (!told.write) {
        return told.hr;
    }
    if (m_current >= m_rows.size()) {
        return DISP_E_BADINDEX;
    }
    *ppVal = platform::make_com<FakeField>(m_host, static_cast<LONG>(id), m_rows[m_current].at(id)).detach();
    return told.hr;
}

STDMETHODIMP FakeTable::MoveFirst() {
    const auto told = m_host.enter("Table", {}, "MoveFirst");
    m_current = 0;
    return told.hr;
}

STDMETHODIMP FakeTable::MoveNext() {
    const auto told = m_host.enter("Table", {}, "MoveNext");
    ++m_current;
    return told.hr;
}

STDMETHODIMP FakeTable::get_EndOfTable(VARIANT_BOOL* pVal) {
    const auto told = m_host.enter("Table", {}, "get_EndOfTable");
    if (told.write) {
        *pVal = m_current >= m_rows.size() ? VARIANT_TRUE : VARIANT_FALSE;
    }
    return told.hr;
}

STDMETHODIMP FakeRequest::put_Symbol(LONG lReserved, LONG lSymbolId) {
    symbol_id = lSymbolId;
    return m_host.enter("Request", {}, "put_Symbol", list({lReserved, lSymbolId})).hr;
}

HRESULT FakeQuery::internal_query(REFIID iid, void** out) {
    if (!has_currency && IsEqualIID(iid, __uuidof(ICurrencyLookup))) {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    return com_root::internal_query(iid, out);
}

void FakeQuery::fill(IovTable* table, const std::vector<row>& rows, LONG id, LONG id_column) const {
    if (table == nullptr) {
        return;
    }
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const row& r) { return std::get<LONG>(r.at(id_column)) == id; });
    const auto current = found == rows.end() ? 0 : found - rows.begin();
    dynamic_cast<FakeTable&>(*table).fill(rows, static_cast<std::size_t>(current));
}

STDMETHODIMP FakeQuery::QuerySymbols(LONG lReserved, ISymbolRequest* pRequest, IovTable* pTable) {
    const auto told =
        m_host.enter("Query", {}, "QuerySymbols",
                     std::to_string(lReserved) + (pRequest != nullptr ? ", request" : ", null") +
                         (pTable != nullptr ? ", table" : ", null"));
    if (told.write) {
        const LONG id = pRequest != nullptr ? dynamic_cast<FakeRequest&>(*pRequest).symbol_id : 0;
        fill(pTable, m_store->ordinary, id, 1016);
    }
    return told.hr;
}

STDMETHODIMP FakeQuery::QuerySecondTable(LONG lReserved1, LONG lReserved2, IovTable* pTable) {
    const auto told =
        m_host.enter("Query", {}, "QuerySecondTable",
                     list({lReserved1, lReserved2}) + (pTable != nullptr ? ", table" : ", null"));
    if (told.write) {
        fill(pTable, m_store->second, m_store->symbol_id, 1102);
    }
    return told.hr;
}

HRESULT FakeQuery::give(const fake_host::outcome& told, LONG value, LONG* out) const {
    if (told.write) {
        *out = value;
    }
    return told.hr;
}

STDMETHODIMP FakeQuery::get_DataFeedId(BSTR sDataFeed, LONG* pVal) {
    return give(m_host.enter("Query", {}, "get_DataFeedId", quoted(sDataFeed)), m_store->feed_id, pVal);
}

STDMETHODIMP FakeQuery::get_ExchangeId(BSTR sExchange, LONG* pVal) {
    return give(m_host.enter("Query", {}, "get_ExchangeId", quoted(sExchange)), m_store->exchange_id, pVal);
}

STDMETHODIMP FakeQuery::get_SymbolId(LONG lDataFeedId, BSTR sName, LONG lCategory, LONG lExchangeId,
                                     LONG lReserved1, LONG lReserved2, LONG lReserved3, LONG* pVal) {
    const std::string arguments = std::to_string(lDataFeedId) + ", " + quoted(sName) + ", " +
                                  list({lCategory, lExchangeId, lReserved1, lReserved2, lReserved3});
    return give(m_host.enter("Query", {}, "get_SymbolId", arguments), m_store->symbol_id, pVal);
}

STDMETHODIMP FakeQuery::get_Currency(LONG lKey, LONG* pVal) {
    return give(m_host.enter("Currency", {}, "get_Currency", std::to_string(lKey)),
                lKey == usual_key ? m_store->currency : -1, pVal);
}

symbol_classes::symbol_classes(const fake_host& host, const std::shared_ptr<symbol_store>& store,
                               const gaps& missing) {
    const auto has = [](const std::vector<CString>& names, const CString& name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    const auto add = [&](const CLSID& clsid, const CString& name, const fake_class::maker& make) {
        if (has(missing.absent, name)) {
            return;
        }
        const bool strange = has(missing.without_interface, name);
        m_classes.push_back(std::make_unique<fake_class>(host, clsid, name, [=]() -> com_ptr<IUnknown> {
            return strange ? platform::make_com<stranger>()->GetUnknown() : make();
        }));
    };
    const bool currency = !missing.without_currency;
    add(CLSID_SymbolQuery, L"Query", [=] {
        const auto query = platform::make_com<FakeQuery>(host, store);
        query->has_currency = currency;
        return com_ptr<IUnknown>(query->GetUnknown());
    });
    add(CLSID_IovTable, L"Table",
        [=] { return com_ptr<IUnknown>(platform::make_com<FakeTable>(host)->GetUnknown()); });
    add(CLSID_SymbolRequest, L"Request",
        [=] { return com_ptr<IUnknown>(platform::make_com<FakeRequest>(host)->GetUnknown()); });
}

}  // namespace test
