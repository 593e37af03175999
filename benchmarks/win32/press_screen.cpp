#include <stdexcept>

#include "benchmarks/bar_of_benchmark.h"
#include "benchmarks/stopwatch.h"
#include "charting/orderdeck/src/window/PanelItems.h"
#include "charting/orderdeck/src/window/RowEyes.h"
#include "unicomp/wtlcontrols/ActualCalendar/GTDCalendar.h"

namespace benchmarks {

namespace {

using namespace OV_OrderDeck;

// The dialog that has Buy as its item.
HWND panel_of(HWND bar) {
    for (HWND child = ::GetWindow(bar, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgItem(child, PanelItem::Buy) != nullptr) {
            return child;
        }
    }
    throw std::runtime_error("The bar has no panel");
}

}  // namespace

bool has_screen() {
    return true;
}

double nanoseconds_of_pressing(bar_of_benchmark& bar) {
    const HWND buy = ::GetDlgItem(panel_of(bar.get_Window()), PanelItem::Buy);
    return nanoseconds_of_one(1, [&] {
        ::SendMessageW(buy, BM_CLICK, 0, 0);
        bar.forget_calls();
    });
}

double nanoseconds_of_reading_the_row(bar_of_benchmark& bar) {
    const HWND panel = panel_of(bar.get_Window());
    WTLControls::CGTDCalendar calendar;
    calendar.SubclassWindow(::GetDlgItem(panel, PanelItem::GtdDate));
    CRowEyes eyes;
    eyes.Attach(panel, calendar);
    return nanoseconds_of_one(1, [&] { eyes.Read(eODUE_Buy, EPressSource::Program); });
}

}  // namespace benchmarks
