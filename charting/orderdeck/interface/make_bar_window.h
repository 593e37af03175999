#pragma once

#include <boost/shared_ptr.hpp>

#include "charting/orderdeck/interface/IBarOwner.h"
#include "charting/orderdeck/interface/ITabCtrl.h"

namespace OV_OrderDeck {

// Makes the bar as a child of the parent. The object also implements IPersist. Never empty: throws
// _com_error when there is no window. The owner outlives the bar. The root reaches its bar through
// this one function only; the module defines it, and a test program defines its own.
boost::shared_ptr<ITabCtrl> make_bar_window(HWND parent, IBarOwner& owner);

}  // namespace OV_OrderDeck
