#pragma once

#include <boost/shared_ptr.hpp>

#include "charting/orderdeck/interface/IUnifyControl.h"
#include "charting/orderdeck/interface/OD_UpdateEntity.h"
#include "platform/com_ptr.h"

namespace OV_OrderDeck {

class CProfileWrap;
class ITabCtrl;

// One tab of the bar: the order row of one trading profile. Lives on the bar's thread.
class ITab {
public:
    virtual void get_Name(CString& name) = 0;
    virtual void put_Id(LONG id) = 0;
    // 0 before put_Id.
    virtual LONG get_Id() = 0;
    virtual void SetContent(const boost::shared_ptr<ITabCtrl>& content) = 0;
    // False when the tab asks for no gradient.
    virtual bool get_GradientColors(COLORREF& from, COLORREF& to) = 0;
    // The field of one bit, empty for any other value.
    virtual boost::shared_ptr<IUnifyControl> get_Control(OD_UpdateEntity entity) = 0;
    virtual com_ptr<CProfileWrap> get_Profile() = 0;
    virtual ~ITab() = default;
};

}  // namespace OV_OrderDeck
