#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"

#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/Controls/HostList.h"
#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {
namespace {

CString text_of_code(LONG code) {
    switch (code) {
        case eMTPA_TIF_Day:
            return resource_string::text(113);
        case eMTPA_TIF_GTC:
            return resource_string::text(114);
        case eMTPA_TIF_GTD:
            return resource_string::text(115);
        case eMTPA_TIF_IOC:
            return resource_string::text(116);
        case eMTPA_TIF_FOK:
            return resource_string::text(234);
        case eMTPA_TIF_AON:
            return resource_string::text(235);
        default:
            return {};
    }
}

}  // namespace

void CTimeInForceCombo::Select(LONG key) {
    CListImpl::Select(key);
    if (!IsEmpty()) {
        _tab()._update(eODUE_GtdDate);
    }
}

bool CTimeInForceCombo::get_Enabled() {
    return m_bEnabled && is_connected_with_symbol(_tab());
}

void CTimeInForceCombo::Update(MTPA_OrdrCtgry category) {
    const com_ptr<ITC_ManualTrading> _trad = _tab().get_Profile()->get_ManualTrading();
    if (!BS_ASSERT(_trad)) {
        return;
    }
    platform::safearray _tif_arr;
    _trad->GetTimeInForces(category, _tif_arr.receive());
    if (!BS_ASSERT(_tif_arr) || !BS_ASSERT(is_list_of_numbers(_tif_arr.get()))) {
        return;
    }
    const std::vector<LONG> codes = numbers_of(_tif_arr.get());
    m_items.clear();
    for (const LONG code : codes) {
        m_items[code] = text_of_code(code);
    }
    // The selected code is compared with the number of codes, odd as it looks: hosts number their codes
    // from 1 and rely on which of them fall back to the first.
    if (m_selected < 0 || m_selected >= static_cast<LONG>(codes.size())) {
        m_selected = codes.empty() ? NoKey : codes.front();
    }
}

}  // namespace OV_OrderDeck
