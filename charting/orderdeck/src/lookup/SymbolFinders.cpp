#include "charting/orderdeck/src/lookup/SymbolFinders.h"

#include <cwchar>

namespace OV_OrderDeck {
namespace {

const wchar_t* text_of(BSTR text) {
    return text != nullptr ? text : L"";
}

// Counts a match. The first one is the record; any other says that there is more than one.
bool take_match(int& count, IovTable& table, bool second, OD_SSymbolInfo& info) {
    if (++count > 1) {
        return true;
    }
    fill_symbol_info(table, second, info);
    return false;
}

}  // namespace

// Deliberately the name before the feed: hardly a row has the name, nearly every row may have the feed, and
// each text costs the host an allocation.
bool unique_by_name_finder::operator()(IovTable& table, bool second) {
    const bool matches = GetAsLong(eOVF_DataFeedId, table) != 0 &&
                         equal_without_case(read_text(eOVF_Name, table).c_str(), m_name) &&
                         std::wcscmp(read_text(eOVF_DataFeed, table).c_str(), m_feed) == 0;
    return matches && take_match(m_count, table, second, m_info);
}

bool unique_by_req_finder::_matches(IovTable& table, bool second) const {
    if (GetAsLong(eOVF_DataFeedId, table) == 0) {
        return false;
    }
    const LONG category = second ? static_cast<LONG>(eSC_SecondTable) : GetAsLong(eOVF_Category, table);
    return category == m_req.Category &&
           equal_without_case(read_text(eOVF_Name, table).c_str(), text_of(m_req.Name)) &&
           equal_without_case(GetAsStringStr(eOVF_DataFeed, table).c_str(), text_of(m_req.DataFeed)) &&
           equal_without_case(GetAsStringStr(eOVF_Exchange, table).c_str(), text_of(m_req.Exchange));
}

bool unique_by_req_finder::operator()(IovTable& table, bool second) {
    return _matches(table, second) && take_match(m_count, table, second, m_info);
}

bool by_id_finder::operator()(IovTable& table, bool second) {
    if (m_feed_id != 0 && GetAsLong(eOVF_DataFeedId, table) != m_feed_id) {
        return m_found;
    }
    if (GetAsLong(second ? eOVF_SecondId : eOVF_Id, table) == m_id) {
        fill_symbol_info(table, second, m_info);
        m_found = true;
    }
    return m_found;
}

}  // namespace OV_OrderDeck
