#pragma once

#include "unicomp/wtlcontrols/ActualCalendar/ActualCalendar.h"

namespace WTLControls {

// The calendar of a good-till date: days before the date that it was last set to can't be picked. A date that
// it moves itself it tells its parent as it tells a user's pick.
class CGTDCalendar final : public CActualCalendar {
public:
    // From the date shown to the end of the calendar.
    void SetRange();

private:
    void OnDateCorrected() override;
};

}  // namespace WTLControls
