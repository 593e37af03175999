#include "charting/orderdeck/interface/TradeInfo.h"

#include <array>
#include <utility>

#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {

namespace {

// The texts of both forms, pair by pair.
constexpr std::array<std::pair<BSTR OD_SSymbolInfo::*, _bstr_t CSymbolInfo::*>, 6> texts{{
    {&OD_SSymbolInfo::DataFeed, &CSymbolInfo::DataFeed},
    {&OD_SSymbolInfo::Name, &CSymbolInfo::Name},
    {&OD_SSymbolInfo::Root, &CSymbolInfo::Root},
    {&OD_SSymbolInfo::Description, &CSymbolInfo::Description},
    {&OD_SSymbolInfo::Exchange, &CSymbolInfo::Exchange},
    {&OD_SSymbolInfo::ExchangeTZI, &CSymbolInfo::ExchangeTZI},
}};

bool equal(const _bstr_t& left, const _bstr_t& right) {
    return platform::text_of(left) == platform::text_of(right);
}

void free_texts(OD_SSymbolInfo& info) {
    for (const auto& [from, to] : texts) {
        SysFreeString(std::exchange(info.*from, nullptr));
    }
}

}  // namespace

void CSymbolInfo::take_values(const OD_SSymbolInfo& info) {
    id = info.id;
    Category = info.Category;
    Currency = info.Currency;
    // Deliberate: an Expiry of 0.0 keeps the old stamp.
    if (info.Expiry != 0.0) {
        Expiry.m_ticks = ovDateTime::SDateTime::OleDate2Ticks(info.Expiry);
    }
    PriceScaleCode = info.PriceScaleCode;
    MinMovement = info.MinMovement;
    BigPointValue = info.BigPointValue;
    StrikePrice = info.StrikePrice;
    PutOrCall = info.PutOrCall == VARIANT_TRUE ? 1 : 0;
    m_bValid = true;
}

CSymbolInfo& CSymbolInfo::operator=(const OD_SSymbolInfo& info) {
    CSymbolInfo taken = *this;
    taken.take_values(info);
    for (const auto& [from, to] : texts) {
        taken.*to = info.*from != nullptr ? _bstr_t(info.*from, true) : _bstr_t();
    }
    return *this = taken;
}

CSymbolInfo& CSymbolInfo::operator=(OD_SSymbolInfo&& info) {
    CSymbolInfo taken = *this;
    taken.take_values(info);
    std::array<_bstr_t, texts.size()> holders;
    for (_bstr_t& holder : holders) {
        holder.GetBSTR();
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto& [from, to] = texts[i];
        holders[i].GetBSTR() = std::exchange(info.*from, nullptr);
        taken.*to = holders[i];
    }
    return *this = taken;
}

void CSymbolInfo::copy_to(OD_SSymbolInfo& info) const {
    BS_ASSERT(m_bValid);
    for (const auto& [to, from] : texts) {
        const _bstr_t& text = this->*from;
        BSTR copy = text.copy();
        SysFreeString(std::exchange(info.*to, copy));
    }
    info.id = id;
    info.Category = Category;
    info.Currency = Currency;
    info.Expiry = Expiry.ToOleDate();
    info.PriceScaleCode = PriceScaleCode;
    info.MinMovement = MinMovement;
    info.BigPointValue = BigPointValue;
    info.PutOrCall = PutOrCall == 1 ? VARIANT_TRUE : VARIANT_FALSE;
    info.StrikePrice = StrikePrice;
}

void CSymbolInfo::_check() const {
    BS_ASSERT(valid());
}

bool operator==(const CSymbolInfo& left, const CSymbolInfo& right) {
    return left.m_bValid == right.m_bValid && equal(left.Name, right.Name) &&
           left.Category == right.Category && equal(left.DataFeed, right.DataFeed) &&
           equal(left.Exchange, right.Exchange);
}

symbol_info_holder::symbol_info_holder() noexcept : OD_SSymbolInfo() {}

symbol_info_holder::~symbol_info_holder() {
    free_texts(*this);
}

}  // namespace OV_OrderDeck
