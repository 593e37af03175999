#include "charting/orderdeck/src/lookup/ProcessSymbols.h"

#include "charting/orderdeck/src/lookup/HostCall.h"
#include "charting/orderdeck/src/lookup/HostObject.h"
#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {
namespace {

bool at_end(IovTable& table) {
    VARIANT_BOOL end = VARIANT_TRUE;
    require(BS_HERE, "get_EndOfTable", table.get_EndOfTable(&end));
    return end != VARIANT_FALSE;
}

struct symbol_objects {
    com_ptr<ISymbolQuery> query = create_host_object<ISymbolQuery>(CLSID_SymbolQuery);
    com_ptr<IovTable> table = create_host_object<IovTable>(CLSID_IovTable);
    com_ptr<ISymbolRequest> request = create_host_object<ISymbolRequest>(CLSID_SymbolRequest);

    void put_symbol(LONG symbol_id) const {
        BS_REQUIRE(request, E_POINTER);
        require(BS_HERE, "put_Symbol", request->put_Symbol(0, symbol_id));
    }

    void run(bool second, ISymbolRequest* with) const {
        const HRESULT hr =
            second ? query->QuerySecondTable(0, 0, table.get()) : query->QuerySymbols(0, with, table.get());
        if (FAILED(hr)) {
            _com_issue_error(hr);
        }
    }
};

// An id that can't be had is 0, the unknown one: the rows themselves then tell.
LONG id_or_none(const BugSlayerUtil::code_location& where, const char* text, HRESULT hr, LONG id) {
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(where, text, hr);
        return 0;
    }
    return id;
}

LONG symbol_id_of(ISymbolQuery& query, const OD_SSymbolReq& req) {
    LONG feed = 0;
    HRESULT hr = query.get_DataFeedId(req.DataFeed, &feed);
    feed = id_or_none(BS_HERE, "get_DataFeedId", hr, feed);
    LONG exchange = 0;
    hr = query.get_ExchangeId(req.Exchange, &exchange);
    exchange = id_or_none(BS_HERE, "get_ExchangeId", hr, exchange);
    LONG symbol = 0;
    hr = query.get_SymbolId(feed, req.Name, req.Category, exchange, 0, 0, 0, &symbol);
    return id_or_none(BS_HERE, "get_SymbolId", hr, symbol);
}

}  // namespace

bool _process_table(IovTable& table, const symbol_finder& finder, bool second, LONG rows) {
    require(BS_HERE, "MoveFirst", table.MoveFirst());
    for (LONG row = 0; !at_end(table); ++row) {
        BS_REQUIRE(row < rows, E_FAIL);
        if (finder(table, second)) {
            return true;
        }
        require(BS_HERE, "MoveNext", table.MoveNext());
    }
    return false;
}

void _process_symbols(const symbol_finder& finder, bool second) {
    const symbol_objects objects;
    if (!objects.query) {
        return;
    }
    objects.put_symbol(0);
    BS_REQUIRE(objects.table, E_POINTER);
    objects.run(second, nullptr);
    _process_table(*objects.table, finder, second);
}

bool _process_symbols_by_req(OD_SSymbolInfo& info, const OD_SSymbolReq& req) {
    const symbol_objects objects;
    if (!objects.query) {
        return false;
    }
    const bool second = req.Category == eSC_SecondTable;
    const LONG symbol_id = symbol_id_of(*objects.query, req);
    objects.put_symbol(symbol_id);
    objects.run(second, objects.request.get());
    if (!objects.table) {
        return false;
    }
    if (symbol_id == 0) {
        unique_by_req_finder finder(req, info);
        _process_table(*objects.table, std::ref(finder), second);
        return finder.count() == 1;
    }
    // Deliberately without moving: a query for an id leaves the table on the symbol's row.
    fill_symbol_info(*objects.table, second, info);
    return true;
}

}  // namespace OV_OrderDeck
