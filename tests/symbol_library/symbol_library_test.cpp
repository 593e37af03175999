// The host's symbol library as the bar's lookup uses it: made and called on threads of its own, while the
// bar's thread waits without serving messages.
#include <gtest/gtest.h>

#include <SymbolStore.h>

#include <map>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/lookup/LookupImpl.h"
#include "platform/com_create.h"
#include "platform/com_object.h"

namespace {

using namespace OV_OrderDeck;

// Of a symbol of the file: name, exchange, scale and value of a point.
using row = std::tuple<std::wstring, std::wstring, LONG, double>;

class apartment {
public:
    explicit apartment(DWORD kind) : m_result(CoInitializeEx(nullptr, kind)) {}
    ~apartment() {
        if (SUCCEEDED(m_result)) {
            CoUninitialize();
        }
    }
    apartment(const apartment&) = delete;
    apartment& operator=(const apartment&) = delete;

private:
    HRESULT m_result;
};

template <class T>
com_ptr<T> make(REFCLSID clsid) {
    com_ptr<T> object;
    EXPECT_EQ(platform::create_running(clsid, object), S_OK);
    return object;
}

com_ptr<IovField> field(IovTable& table, tagOVFIELDID id) {
    com_ptr<IovField> result;
    EXPECT_EQ(table.get_Field(id, platform::receive(result)), S_OK) << id;
    return result;
}

LONG number(IovTable& table, tagOVFIELDID id) {
    LONG value = 0;
    EXPECT_EQ(field(table, id)->get_AsLong(&value), S_OK) << id;
    return value;
}

std::wstring text(IovTable& table, tagOVFIELDID id) {
    _bstr_t value;
    EXPECT_EQ(field(table, id)->get_AsString(value.GetAddress()), S_OK) << id;
    return platform::text_of(value);
}

// All rows by their id, from objects that are made, used and ended here.
std::map<LONG, row> walk() {
    const auto query = make<ISymbolQuery>(CLSID_SymbolQuery);
    const auto table = make<IovTable>(CLSID_IovTable);
    const auto request = make<ISymbolRequest>(CLSID_SymbolRequest);
    std::map<LONG, row> rows;
    EXPECT_EQ(request->put_Symbol(0, 0), S_OK);
    EXPECT_EQ(query->QuerySymbols(0, request.get(), table.get()), S_OK);
    EXPECT_EQ(table->MoveFirst(), S_OK);
    VARIANT_BOOL end = VARIANT_FALSE;
    while (table->get_EndOfTable(&end) == S_OK && end == VARIANT_FALSE) {
        double point = 0.0;
        EXPECT_EQ(field(*table, eOVF_BigPointValue)->get_AsDouble(&point), S_OK);
        rows[number(*table, eOVF_Id)] = {text(*table, eOVF_Name), text(*table, eOVF_Exchange),
                                         number(*table, eOVF_PriceScaleCode), point};
        EXPECT_EQ(table->MoveNext(), S_OK);
    }
    return rows;
}

class SymbolLibrary : public testing::Test {
protected:
    // Runs a call on a thread with an apartment of its own and waits without serving messages.
    template <class Call>
    static void elsewhere(DWORD kind, Call call) {
        std::thread worker([&] {
            const apartment own(kind);
            call();
        });
        worker.join();
    }

    static void expect_rows_of_the_file(const std::map<LONG, row>& rows) {
        ASSERT_TRUE(rows.contains(3));
        EXPECT_EQ(rows.at(3), row(L"MSFT", L"NASDAQ", 2, 1.0));
        ASSERT_TRUE(rows.contains(8));
        EXPECT_EQ(rows.at(8), row(L"ZBZ6", L"CBOT", 'k', 1000.0));
        EXPECT_GT(rows.size(), 10u);
    }

    // The bar's thread.
    apartment here{COINIT_APARTMENTTHREADED};
};

TEST_F(SymbolLibrary, ServesItsTablesOnTheThreadThatAsks) {
    expect_rows_of_the_file(walk());
}

TEST_F(SymbolLibrary, ServesItsTablesOnAnotherThreadOfEitherKind) {
    for (const DWORD kind : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        std::map<LONG, row> rows;
        elsewhere(kind, [&] { rows = walk(); });
        expect_rows_of_the_file(rows);
    }
}

TEST_F(SymbolLibrary, ServesSeveralThreadsAtOnce) {
    std::vector<std::map<LONG, row>> all(4);
    std::vector<std::thread> workers;
    for (std::size_t i = 0; i < all.size(); ++i) {
        workers.emplace_back([&rows = all[i], i] {
            const apartment own(i % 2 == 0 ? COINIT_APARTMENTTHREADED : COINIT_MULTITHREADED);
            for (int turn = 0; turn < 5; ++turn) {
                rows = walk();
            }
        });
    }
    for (std::thread& worker : workers) {
        worker.join();
    }
    for (const auto& rows : all) {
        expect_rows_of_the_file(rows);
        EXPECT_EQ(rows, all[0]);
    }
}

TEST_F(SymbolLibrary, TurnsTextsIntoIdsAndCurrenciesOnAnotherThread) {
    LONG feed = 0;
    LONG exchange = 0;
    LONG symbol = 0;
    LONG currency = -1;
    elsewhere(COINIT_APARTMENTTHREADED, [&] {
        const auto query = make<ISymbolQuery>(CLSID_SymbolQuery);
        query->get_DataFeedId(_bstr_t(L"OrderDeck Quotes"), &feed);
        query->get_ExchangeId(_bstr_t(L"CBOT"), &exchange);
        LONG category = 0;
        const auto table = make<IovTable>(CLSID_IovTable);
        const auto request = make<ISymbolRequest>(CLSID_SymbolRequest);
        request->put_Symbol(0, 8);
        EXPECT_EQ(query->QuerySymbols(0, request.get(), table.get()), S_OK);
        category = number(*table, eOVF_Category);
        query->get_SymbolId(feed, _bstr_t(L"ZBZ6"), category, exchange, 0, 0, 0, &symbol);
        const auto currencies = make<ICurrencyLookup>(CLSID_SymbolQuery);
        EXPECT_EQ(currencies->get_Currency(number(*table, eOVF_CurrencyKey), &currency), S_OK);
    });
    EXPECT_NE(feed, 0);
    EXPECT_NE(exchange, 0);
    EXPECT_EQ(symbol, 8);
    EXPECT_NE(currency, -1);
}

TEST_F(SymbolLibrary, MakesEachOfItsClassesOnAnotherThread) {
    for (const CLSID& clsid : {CLSID_SymbolQuery, CLSID_IovTable, CLSID_SymbolRequest, CLSID_DataProperty,
                               GUID_SymbolPage, GUID_InstrumentPage}) {
        HRESULT hr = E_FAIL;
        elsewhere(COINIT_APARTMENTTHREADED, [&] {
            com_ptr<IUnknown> object;
            hr = platform::create_running(clsid, object);
        });
        EXPECT_EQ(hr, S_OK);
    }
}

// The component's own lookup over the library.
class SymbolLibraryLookup : public SymbolLibrary {
protected:
    SymbolLibraryLookup() {
        EXPECT_EQ(lookup->Initialize(0, _bstr_t(L"OrderDeck Quotes"), VARIANT_TRUE, nullptr), S_OK);
    }
    std::wstring name() const { return platform::text_of(info.Name); }

    com_ptr<CLookupImpl> lookup = platform::make_com<CLookupImpl>();
    symbol_info_holder info;
    OD_LookupResult result = eODLR_Canceled;
};

TEST_F(SymbolLibraryLookup, FindsASymbolByItsNameOnItsWorker) {
    EXPECT_EQ(lookup->GetSymbolInfo(_bstr_t(L"zbz6"), 1, nullptr, &info, &result), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(info.id, 8);
    EXPECT_EQ(name(), L"ZBZ6");
    EXPECT_STREQ(info.Exchange, L"CBOT");
    EXPECT_EQ(info.DataFeed, nullptr) << "only the dialog tells a feed";
    EXPECT_EQ(info.PriceScaleCode, 'k');
    EXPECT_EQ(info.BigPointValue, 1000.0);
}

TEST_F(SymbolLibraryLookup, FindsASymbolByItsIdOnItsWorker) {
    EXPECT_EQ(lookup->GetSymbolInfoById(3, &info, &result), S_OK);
    EXPECT_EQ(result, eODLR_Selected);
    EXPECT_EQ(name(), L"MSFT");
    EXPECT_EQ(info.PriceScaleCode, 2);
}

TEST_F(SymbolLibraryLookup, FindsNothingForANameThatIsNone) {
    EXPECT_EQ(lookup->GetSymbolInfo(_bstr_t(L"NOSUCH"), 1, nullptr, &info, &result), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
}

}  // namespace
