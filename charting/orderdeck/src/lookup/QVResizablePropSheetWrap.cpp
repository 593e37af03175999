#include "charting/orderdeck/src/lookup/QVResizablePropSheetWrap.h"

namespace OV_OrderDeck {

HRESULT CQVResizablePropSheetWrap::CreateSheet() {
    if (m_sheet) {
        return S_OK;
    }
    return CreateObject(__uuidof(IQVPropertySheet), static_cast<void**>(platform::receive(m_sheet)));
}

}  // namespace OV_OrderDeck
