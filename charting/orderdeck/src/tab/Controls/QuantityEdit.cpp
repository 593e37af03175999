#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"

#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"

namespace OV_OrderDeck {

bool CQuantityEdit::get_Enabled() {
    return m_bEnabled && is_connected_with_symbol(_tab());
}

void CQuantityEdit::put_Value(const VARIANT& value) {
    _variant_t number;
    if (const HRESULT hr = VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_I4); FAILED(hr)) {
        _com_issue_error(hr);
    }
    m_value = number.lVal;
    _tab()._update(UpdateMask::Buttons);
}

_variant_t CQuantityEdit::get_Value() {
    return _variant_t(std::to_wstring(m_value).c_str());
}

bool CQuantityEdit::IsEmpty() {
    return m_value == Empty;
}

}  // namespace OV_OrderDeck
