#include "charting/orderdeck/src/root/FindMainFrame.h"

#include "platform/desktop.h"

namespace OV_OrderDeck {

HWND FindMainFrame() {
    platform::desktop& desktop = platform::port<platform::desktop>::get();
    const HWND frame = desktop.main_frame();
    return desktop.is_window(frame) ? frame : desktop.active_window();
}

}  // namespace OV_OrderDeck
