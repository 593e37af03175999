#pragma once

#include <limits>

#include "OrderDeck.h"
#include "platform/text.h"
#include "unicomp/datetimeutils/interface/DateTime.h"

namespace OV_OrderDeck {

// One instrument. Texts are shared and counted, so copying a record costs no allocation. Belongs to one
// thread at a time; the shared texts may be dropped on any thread.
class CSymbolInfo {
public:
    CSymbolInfo() = default;
    CSymbolInfo(const CSymbolInfo&) = default;
    CSymbolInfo& operator=(const CSymbolInfo&) = default;

    // Both take every value of info and leave the record valid. An Expiry of 0.0 leaves the old stamp.
    // They throw _com_error (out of memory) or a range error of the expiry; the record and info are then
    // as they were. The first copies the texts, the second makes them its own and leaves nulls behind.
    CSymbolInfo& operator=(const OD_SSymbolInfo& info);
    CSymbolInfo& operator=(OD_SSymbolInfo&& info);

    // Replaces the texts of info, whose old ones are freed, by copies that the caller owns; a null text
    // stays null. An invalid record is reported and copied all the same.
    void copy_to(OD_SSymbolInfo& info) const;

    // The record holds a symbol.
    bool valid() const { return m_bValid; }
    // Reports a record that is not valid.
    void _check() const;

    static constexpr LONG no_category = 254;
    static constexpr LONG not_set = 0x7FFFFFFF;
    static constexpr BYTE side_not_set = 2;

    LONG id = not_set;
    bool m_bValid = false;
    _bstr_t DataFeed;
    _bstr_t Name = L"";
    _bstr_t Root;
    _bstr_t Description;
    _bstr_t Exchange;
    _bstr_t ExchangeTZI;
    LONG Category = no_category;
    ovDateTime::SDateTime Expiry;
    LONG PriceScaleCode = not_set;
    double MinMovement = std::numeric_limits<double>::max();
    double BigPointValue = std::numeric_limits<double>::max();
    // 0, 1, or side_not_set.
    BYTE PutOrCall = side_not_set;
    double StrikePrice = std::numeric_limits<double>::max();
    LONG Currency = not_set;

private:
    void take_values(const OD_SSymbolInfo& info);
};

// Whether a new record would change anything: validity, name, category, data feed and exchange. Nothing
// else counts. By code unit, with case; a null text equals an empty one.
bool operator==(const CSymbolInfo& left, const CSymbolInfo& right);

// A symbol as it crosses the interfaces, zero at first, that frees its texts.
struct symbol_info_holder : OD_SSymbolInfo {
    symbol_info_holder() noexcept;
    ~symbol_info_holder();
    symbol_info_holder(const symbol_info_holder&) = delete;
    symbol_info_holder& operator=(const symbol_info_holder&) = delete;
};

}  // namespace OV_OrderDeck
