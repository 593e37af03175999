#pragma once

#include <boost/shared_ptr.hpp>

#include "charting/orderdeck/interface/OD_UpdateEntity.h"
#include "platform/com.h"

namespace OV_OrderDeck {

class CAccountCombo;
class CAskBidButton;
template <UINT Label, unsigned Mask>
class CBuySellButton;
class CLookup;
class COrderTypeCombo;
template <unsigned Entity>
class CPriceEdit;
class CQuantityEdit;
class CTimeInForceCombo;
class CTimeInForceEdit;
class IUnifyControl;

using CBuyButton = CBuySellButton<138, eODUE_Buy>;
using CSellButton = CBuySellButton<141, eODUE_Sell>;
using CFirstPriceEdit = CPriceEdit<eODUE_FirstPrice>;
using CSecondPriceEdit = CPriceEdit<eODUE_SecondPrice>;

// The eleven fields of one order row, in the order in which they are made. Owned by the tab; through
// it one field reads another. Lives on the bar's thread.
struct CControlsHolder {
    CControlsHolder();
    ~CControlsHolder();
    CControlsHolder(const CControlsHolder&) = delete;
    CControlsHolder& operator=(const CControlsHolder&) = delete;

    // The field of one bit, empty for any other value.
    boost::shared_ptr<IUnifyControl> find(OD_UpdateEntity entity) const;

    boost::shared_ptr<CLookup> m_pSymbol;
    boost::shared_ptr<COrderTypeCombo> m_pOrderType;
    boost::shared_ptr<CQuantityEdit> m_pQuantity;
    boost::shared_ptr<CFirstPriceEdit> m_pFirstPrice;
    boost::shared_ptr<CSecondPriceEdit> m_pSecondPrice;
    boost::shared_ptr<CAccountCombo> m_pAccount;
    boost::shared_ptr<CTimeInForceCombo> m_pTimeInForce;
    boost::shared_ptr<CTimeInForceEdit> m_pGtdDate;
    boost::shared_ptr<CAskBidButton> m_pAskBid;
    boost::shared_ptr<CBuyButton> m_pBuy;
    boost::shared_ptr<CSellButton> m_pSell;
};

}  // namespace OV_OrderDeck
