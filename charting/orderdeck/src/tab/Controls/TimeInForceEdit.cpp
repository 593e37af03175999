#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"

#include "TradingCenter.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"
#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "platform/clock.h"

namespace OV_OrderDeck {

CTimeInForceEdit::CTimeInForceEdit() {
    m_value = platform::port<platform::clock>::get().local_time();
}

bool CTimeInForceEdit::get_Enabled() {
    return m_bEnabled && !get_Hidden() && is_connected_with_symbol(_tab());
}

bool CTimeInForceEdit::get_Hidden() {
    return _tab().get_Controls().m_pTimeInForce->get_SelectedItem(nullptr) != eMTPA_TIF_GTD;
}

void CTimeInForceEdit::put_Value(const VARIANT& value) {
    BS_REQUIRE(value.vt == VT_DATE, DISP_E_TYPEMISMATCH);
    m_value.m_ticks = ovDateTime::SDateTime::OleDate2Ticks(value.date);
}

_variant_t CTimeInForceEdit::get_Value() {
    _variant_t result;
    result.vt = VT_DATE;
    result.date = m_value.ToOleDate();
    return result;
}

// The stamp of a default SDateTime stands for no date.
bool CTimeInForceEdit::IsEmpty() {
    return !ovDateTime::IsDateTimeValid(m_value.GetDayNumber(), m_value.GetTimeOfDay()) ||
           m_value.m_ticks == ovDateTime::default_ticks;
}

}  // namespace OV_OrderDeck
