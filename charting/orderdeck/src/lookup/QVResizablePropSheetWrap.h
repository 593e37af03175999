#pragma once

#include "charting/orderdeck/src/lookup/QVPropSheetWrapBase.h"

namespace OV_OrderDeck {

// A sheet that the user can resize.
class CQVResizablePropSheetWrap final : public CQVPropSheetWrapBase {
public:
    HRESULT CreateSheet() override;
};

}  // namespace OV_OrderDeck
