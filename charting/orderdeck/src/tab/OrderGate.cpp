#include "charting/orderdeck/src/tab/OrderGate.h"

#include <string_view>

#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"
#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"
#include "charting/orderdeck/src/tab/Controls/Lookup.h"
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"
#include "charting/orderdeck/src/tab/DifferenceText.h"
#include "unicomp/FormatUtil/interface/PriceToString.h"
#include "unicomp/FormatUtil/interface/ReadsAs.h"

namespace OV_OrderDeck {

namespace {

using Kind = SRowDifference::Kind;

std::wstring_view view_of(const _bstr_t& text) {
    const BSTR raw = text.copy(false);
    return raw != nullptr ? std::wstring_view(raw, SysStringLen(raw)) : std::wstring_view();
}

// All of the record that the host is told.
bool goes_out_equal(const CSymbolInfo& left, const CSymbolInfo& right) {
    return left.valid() == right.valid() && view_of(left.Name) == view_of(right.Name) &&
           view_of(left.Root) == view_of(right.Root) &&
           view_of(left.Description) == view_of(right.Description) &&
           view_of(left.Exchange) == view_of(right.Exchange) &&
           view_of(left.DataFeed) == view_of(right.DataFeed) && left.Category == right.Category &&
           left.Currency == right.Currency && left.Expiry.m_ticks == right.Expiry.m_ticks &&
           left.MinMovement == right.MinMovement && left.PriceScaleCode == right.PriceScaleCode &&
           left.BigPointValue == right.BigPointValue && left.PutOrCall == right.PutOrCall &&
           left.StrikePrice == right.StrikePrice;
}

double price_of(CPriceEditBase& field) {
    return field.IsEmpty() ? 0.0 : field.get_Price();
}

double date_of(CTimeInForceEdit& field) {
    return field.get_Value().date;
}

// Collects what differs, item by item.
class comparison {
public:
    comparison(const CRowSight& sight, row_differences& found) : m_sight(&sight), m_found(&found) {}

    void text(OD_UpdateEntity entity, std::wstring_view sent) const {
        const SShownItem& item = (*m_sight)[entity];
        if (item.shown && item.text != sent) {
            other(entity, item.text, CString(sent));
        }
    }

    // A selected key that the list no longer has shows nothing, and goes out all the same: that reads as
    // nothing.
    void row(OD_UpdateEntity entity, const CListImpl<IUnifyControl>& list) const {
        const CString* const sent = list.FindSelectedText();
        if (sent != nullptr) {
            text(entity, *sent);
        } else if ((*m_sight)[entity].shown) {
            unreadable(entity, (*m_sight)[entity].text);
        }
    }

    void quantity(LONG sent) const {
        const SShownItem& item = (*m_sight)[eODUE_Quantity];
        if (!item.shown) {
            return;
        }
        const std::optional<LONG> reads = local_format::QuantityReadsAs(item.text);
        if (!reads) {
            unreadable(eODUE_Quantity, item.text);
        } else if (*reads != sent) {
            other(eODUE_Quantity, item.text, std::to_wstring(sent));
        }
    }

    void price(CPriceEditBase& field, OD_UpdateEntity entity, const CPriceToString& format) const {
        const SShownItem& item = (*m_sight)[entity];
        const double sent = price_of(field);
        if (!item.shown) {
            if (!field.get_Hidden()) {
                other(entity, text_of_nothing_shown(), local_format::ExactPriceText(format, sent));
            }
            return;
        }
        const std::optional<double> reads = local_format::PriceReadsAs(item.text);
        double tick = 0.0;
        field.get_ValueRange(&tick, nullptr);
        if (!reads) {
            unreadable(entity, item.text);
        } else if (!local_format::IsSamePrice(*reads, sent, tick)) {
            other(entity, item.text, local_format::ExactPriceText(format, sent));
        }
    }

    void date(CTimeInForceEdit& field, LONG day) const {
        const SShownItem& item = (*m_sight)[eODUE_GtdDate];
        if (item.shown && m_sight->day != day) {
            other(eODUE_GtdDate, text_of_day(m_sight->day), text_of_day(day));
        } else if (!item.shown && !field.get_Hidden()) {
            other(eODUE_GtdDate, text_of_nothing_shown(), text_of_day(day));
        }
    }

private:
    void other(OD_UpdateEntity entity, const CString& shown, const CString& sent) const {
        m_found->push_back({entity, Kind::Other, shown, sent});
    }
    void unreadable(OD_UpdateEntity entity, const CString& shown) const {
        m_found->push_back({entity, Kind::Unreadable, shown, {}});
    }

    const CRowSight* m_sight;
    row_differences* m_found;
};

// Empty for none.
std::wstring_view account_of(const CAccountCombo& accounts) {
    const CString* const name = accounts.FindSelectedText();
    return name != nullptr ? std::wstring_view(*name) : std::wstring_view();
}

LONG day_of(double ole_date) {
    return static_cast<LONG>(ole_date);
}

}  // namespace

SOrderRequest COrderGate::Compose(LONG action) const {
    SOrderRequest request;
    request.symbol = m_fields->m_pSymbol->get_Symbol();
    request.action = static_cast<MTPA_OrdrActn>(action);
    request.category = m_fields->m_pOrderType->get_OrderType();
    request.quantity = m_fields->m_pQuantity->get_Quantity();
    // A price goes out unless its field is empty, whatever the category.
    request.limit_price = price_of(*m_fields->m_pSecondPrice);
    request.stop_price = price_of(*m_fields->m_pFirstPrice);
    request.account = m_fields->m_pAccount->get_Account();
    request.time_in_force = m_fields->m_pTimeInForce->get_SelectedItem(nullptr);
    // Deliberate: the date goes with every order; hosts read it under GTD only.
    request.gtd_date = date_of(*m_fields->m_pGtdDate);
    request.usable = m_fields->m_pBuy->get_Enabled();
    return request;
}

row_differences COrderGate::Compare(const CRowSight& sight, const SOrderRequest& request,
                                    const CPriceToString& format) const {
    row_differences found;
    const comparison compare(sight, found);
    compare.text(eODUE_Symbol, view_of(request.symbol.Name));
    compare.row(eODUE_OrderType, *m_fields->m_pOrderType);
    compare.quantity(request.quantity);
    compare.price(*m_fields->m_pFirstPrice, eODUE_FirstPrice, format);
    compare.price(*m_fields->m_pSecondPrice, eODUE_SecondPrice, format);
    compare.text(eODUE_Account, request.account);
    compare.row(eODUE_TimeInForce, *m_fields->m_pTimeInForce);
    compare.date(*m_fields->m_pGtdDate, day_of(request.gtd_date));
    // The caption tells again what its items tell; it has a word of its own only when they all agree.
    if (found.empty()) {
        const bool buys = request.action == eMTPA_OA_Buy;
        IUnifyControl& button = buys ? static_cast<IUnifyControl&>(*m_fields->m_pBuy) : *m_fields->m_pSell;
        const _variant_t caption = button.get_Value();
        compare.text(buys ? eODUE_Buy : eODUE_Sell, std::wstring_view(caption.bstrVal));
    }
    return found;
}

row_differences COrderGate::Moved(const SOrderRequest& request) const {
    row_differences found;
    const auto keep = [&found](OD_UpdateEntity entity, bool same) {
        if (!same) {
            found.push_back({entity, Kind::ByHost, {}, {}});
        }
    };
    const auto same_price = [](CPriceEditBase& field, double price) { return price_of(field) == price; };
    keep(eODUE_Symbol, goes_out_equal(m_fields->m_pSymbol->get_Symbol(), request.symbol));
    keep(eODUE_OrderType, m_fields->m_pOrderType->get_SelectedItem(nullptr) == request.category);
    keep(eODUE_Quantity, m_fields->m_pQuantity->get_Quantity() == request.quantity);
    keep(eODUE_FirstPrice, same_price(*m_fields->m_pFirstPrice, request.stop_price));
    keep(eODUE_SecondPrice, same_price(*m_fields->m_pSecondPrice, request.limit_price));
    keep(eODUE_Account, account_of(*m_fields->m_pAccount) == request.account);
    keep(eODUE_TimeInForce, m_fields->m_pTimeInForce->get_SelectedItem(nullptr) == request.time_in_force);
    keep(eODUE_GtdDate, date_of(*m_fields->m_pGtdDate) == request.gtd_date);
    if (found.empty() && request.usable && !m_fields->m_pBuy->get_Enabled()) {
        found.push_back({request.action == eMTPA_OA_Sell ? eODUE_Sell : eODUE_Buy, Kind::Unusable, {}, {}});
    }
    return found;
}

}  // namespace OV_OrderDeck
