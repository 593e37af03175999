#include "charting/orderdeck/src/tab/ControlsHolder.h"

#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"
#include "charting/orderdeck/src/tab/Controls/AskBidButton.h"
#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"
#include "charting/orderdeck/src/tab/Controls/Lookup.h"
#include "charting/orderdeck/src/tab/Controls/OrderTypeCombo.h"
#include "charting/orderdeck/src/tab/Controls/PriceEdit.h"
#include "charting/orderdeck/src/tab/Controls/QuantityEdit.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceCombo.h"
#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"

namespace OV_OrderDeck {

CControlsHolder::CControlsHolder() = default;

CControlsHolder::~CControlsHolder() = default;

boost::shared_ptr<IUnifyControl> CControlsHolder::find(OD_UpdateEntity entity) const {
    switch (entity) {
        case eODUE_Symbol:
            return m_pSymbol;
        case eODUE_OrderType:
            return m_pOrderType;
        case eODUE_Quantity:
            return m_pQuantity;
        case eODUE_FirstPrice:
            return m_pFirstPrice;
        case eODUE_SecondPrice:
            return m_pSecondPrice;
        case eODUE_Account:
            return m_pAccount;
        case eODUE_TimeInForce:
            return m_pTimeInForce;
        case eODUE_GtdDate:
            return m_pGtdDate;
        case eODUE_AskBid:
            return m_pAskBid;
        case eODUE_Buy:
            return m_pBuy;
        case eODUE_Sell:
            return m_pSell;
    }
    return {};
}

}  // namespace OV_OrderDeck
