#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"

#include <algorithm>
#include <cmath>

#include "TradingCenter.h"
#include "charting/orderdeck/src/tab/Controls/Lookup.h"
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "unicomp/FormatUtil/interface/PriceToString.h"
#include "unicomp/FormatUtil/interface/ReadsAs.h"

namespace OV_OrderDeck {
namespace {

constexpr double SmallestStep = 2.220446049250313e-16;

// A count of steps as 32 bits; what is beyond them is the largest number.
LONG saturate(double steps) {
    constexpr LONG largest = std::numeric_limits<LONG>::max();
    return steps < static_cast<double>(largest) ? static_cast<LONG>(steps) : largest;
}

}  // namespace

bool CPriceEditBase::get_Enabled() {
    return m_bEnabled && !get_Hidden() && is_connected_with_symbol(_tab());
}

void CPriceEditBase::put_Value(const VARIANT& value) {
    BS_REQUIRE(value.vt == VT_BSTR || value.vt == VT_INT, DISP_E_TYPEMISMATCH);
    if (value.vt == VT_BSTR) {
        _put_text(platform::text_of(value.bstrVal));
    } else {
        _put_steps(value.intVal);
    }
}

_variant_t CPriceEditBase::get_Value() {
    _variant_t result;
    result.bstrVal = platform::new_bstr(m_text);
    result.vt = VT_BSTR;
    return result;
}

void CPriceEditBase::get_ValueRange(double* low, double* high) {
    if (low != nullptr) {
        *low = _get_step();
    }
    if (high != nullptr) {
        *high = HighestPrice;
    }
}

void CPriceEditBase::get_SpinRange(LONG* low, LONG* high) {
    const double step = _get_step();
    if (!(step >= SmallestStep)) {
        BugSlayerUtil::assertion(BS_HERE, "0");
        return;
    }
    if (low != nullptr) {
        // A step without end can't be counted: it has no first one.
        *low = std::isfinite(step) ? 1 : 0;
    }
    if (high != nullptr) {
        *high = saturate(std::ceil(HighestPrice / step));
    }
}

// A price that is not a number is no price either.
bool CPriceEditBase::IsEmpty() {
    return m_value == NoPrice || !(m_value <= HighestPrice) || m_value < _get_step();
}

CString CPriceEditBase::get_TypedAs() {
    if (IsEmpty()) {
        return {};
    }
    const std::optional<double> reads = local_format::PriceReadsAs(m_text);
    if (reads && local_format::IsSamePrice(*reads, m_value, _get_step())) {
        return {};
    }
    return local_format::ExactPriceText(_tab()._get_price_format(), m_value);
}

void CPriceEditBase::Clear() {
    m_value = NoPrice;
    m_text.clear();
}

void CPriceEditBase::_set_value(double value) {
    m_text = _tab()._get_price_format().ToText(value);
    m_value = value;
}

void CPriceEditBase::_set_clamped(double value) {
    if (value < _get_step()) {
        _set_low();
    } else if (value > HighestPrice) {
        _set_high();
    } else {
        _set_value(value);
    }
}

double CPriceEditBase::_get_step() const {
    const double step = _tab()._get_price_format().Scale->GetStep();
    const CSymbolInfo& symbol = _tab().get_Controls().m_pSymbol->get_Symbol();
    return symbol.valid() ? step * symbol.MinMovement : step;
}

void CPriceEditBase::_set_low() {
    _set_value(_get_step());
}

void CPriceEditBase::_set_high() {
    _set_value(HighestPrice);
}

void CPriceEditBase::_put_text(const CString& text) {
    m_text = text;
    m_value = NoPrice;
    double price = NoPrice;
    if (_tab()._get_price_format().Scale->Parse(text, price)) {
        m_value = price;
    }
}

// Spinning an empty field starts at an end of the range. A price off the grid goes to the nearest tick
// before the steps are added, and a tie goes down: that is deliberate, unlike the rounding of shown
// prices.
void CPriceEditBase::_put_steps(LONG steps) {
    if (steps == 0) {
        return;
    }
    if (IsEmpty()) {
        steps < 1 ? _set_high() : _set_low();
        return;
    }
    const double step = _get_step();
    if (!(step >= SmallestStep)) {
        return;
    }
    double whole = 0.0;
    const double fraction = std::modf(m_value / step, &whole);
    _set_clamped((static_cast<double>(steps) + whole + (fraction > 0.5 ? 1.0 : 0.0)) * step);
}

template <>
bool CPriceEdit<eODUE_FirstPrice>::get_Hidden() {
    const LONG category = _tab().get_Controls().m_pOrderType->get_SelectedItem(nullptr);
    return category != eMTPA_OC_Stop && category != eMTPA_OC_StopLimit;
}

template <>
bool CPriceEdit<eODUE_SecondPrice>::get_Hidden() {
    const LONG category = _tab().get_Controls().m_pOrderType->get_SelectedItem(nullptr);
    return category != eMTPA_OC_Limit && category != eMTPA_OC_StopLimit;
}

}  // namespace OV_OrderDeck
