#include "charting/orderdeck/src/tab/DifferenceText.h"

#include <algorithm>

#include "charting/orderdeck/interface/RowSight.h"
#include "unicomp/Simples/interface/FillText.h"
#include "unicomp/Simples/interface/resource_string.h"
#include "unicomp/datetimeutils/interface/DateTime.h"

namespace OV_OrderDeck {

namespace {

using Kind = SRowDifference::Kind;

constexpr UINT reads_other = 306;
constexpr UINT reads_nothing = 307;
constexpr UINT empty_text = 308;
constexpr UINT nothing_shown = 309;
constexpr UINT press_again = 310;
constexpr UINT mend_first = 311;
constexpr UINT no_symbol = 312;
constexpr UINT not_usable = 313;
constexpr UINT changed_by_host = 314;
constexpr UINT under_way = 318;
constexpr UINT between_items = 319;

UINT name_of(OD_UpdateEntity entity) {
    switch (entity) {
        case eODUE_Symbol:
            return 316;
        case eODUE_OrderType:
            return 301;
        case eODUE_Quantity:
            return 128;
        case eODUE_FirstPrice:
            return 126;
        case eODUE_SecondPrice:
            return 127;
        case eODUE_Account:
            return 302;
        case eODUE_TimeInForce:
            return 303;
        case eODUE_GtdDate:
            return 304;
        case eODUE_AskBid:
            return 140;
        case eODUE_Buy:
            return 138;
        case eODUE_Sell:
            return 141;
    }
    return 0;
}

// In one line, and told when there is nothing to read.
CString quoted(CString text) {
    std::replace(text.begin(), text.end(), L'\n', L' ');
    return text.empty() ? resource_string::text(empty_text) : text;
}

CString text_of(const SRowDifference& difference) {
    CString name = resource_string::text(name_of(difference.entity));
    switch (difference.kind) {
        case Kind::Other:
            return Unicomp::fill_text(resource_string::text(reads_other),
                                      {name, quoted(difference.shown), quoted(difference.sent)});
        case Kind::Unreadable:
            return Unicomp::fill_text(resource_string::text(reads_nothing), {name, quoted(difference.shown)});
        case Kind::ByHost:
            return name;
        case Kind::NoSymbol:
            return resource_string::text(no_symbol);
        case Kind::Unusable:
            return resource_string::text(not_usable);
        case Kind::UnderWay:
            return resource_string::text(under_way);
    }
    return {};
}

bool has(const row_differences& differences, Kind kind) {
    return std::any_of(differences.begin(), differences.end(),
                       [kind](const SRowDifference& each) { return each.kind == kind; });
}

}  // namespace

CString text_of_day(LONG day) {
    ovDateTime::TDate date{};
    if (day <= 0 || !ovDateTime::details::JulianToDateImpl(day, date)) {
        return {};
    }
    return std::to_wstring(date.Year) + L"/" + std::to_wstring(date.Month) + L"/" + std::to_wstring(date.Day);
}

CString text_of_nothing_shown() {
    return resource_string::text(nothing_shown);
}

CString TextOfDifferences(const row_differences& differences) {
    CString items;
    for (const SRowDifference& difference : differences) {
        if (!items.empty()) {
            items += resource_string::text(between_items);
        }
        items += text_of(difference);
    }
    if (has(differences, Kind::NoSymbol) || has(differences, Kind::Unusable) ||
        has(differences, Kind::UnderWay)) {
        return items;
    }
    const UINT sentence = has(differences, Kind::Unreadable) ? mend_first
                          : has(differences, Kind::ByHost)   ? changed_by_host
                                                             : press_again;
    return Unicomp::fill_text(resource_string::text(sentence), {items});
}

}  // namespace OV_OrderDeck
