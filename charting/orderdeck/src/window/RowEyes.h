#pragma once

#include <windows.h>

#include <array>
#include <utility>

#include "charting/orderdeck/interface/RowSight.h"
#include "unicomp/wtlcontrols/ActualCalendar/ActualCalendar.h"

namespace OV_OrderDeck {

// Reads what the order row shows, from its windows alone. Lives on the panel's thread.
class CRowEyes {
public:
    // Once the panel has its items. The calendar is not owned and outlives the eyes.
    void Attach(HWND panel, const WTLControls::CActualCalendar& calendar);

    // The row as it stands. One message for each visible item that goes out with an order of that button, and
    // none for the others.
    CRowSight Read(OD_UpdateEntity button, EPressSource source) const;

private:
    std::array<std::pair<OD_UpdateEntity, HWND>, 11> m_items{};
    const WTLControls::CActualCalendar* m_calendar = nullptr;
};

}  // namespace OV_OrderDeck
