#include "charting/orderdeck/src/tab/MessageBox.h"

#include "charting/orderdeck/src/root/FindMainFrame.h"
#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/root/UILocker.h"
#include "platform/desktop.h"
#include "platform/resources.h"

namespace OV_OrderDeck {

int OrderDeckMessageBox(const CString& text, UINT flags) {
    CGlobalData global;
    const SW::CUILocker locker(global->get_OnCommand().get(), global->get_Hwnd());
    return platform::port<platform::desktop>::get().message_box(
        FindMainFrame(), text, platform::main_version_string(L"ProductName"), flags);
}

}  // namespace OV_OrderDeck
