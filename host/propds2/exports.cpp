// PropDS2_x64.dll: resizable property sheets for the windows of the application's components.
#include "propds2/property_sheet.h"

// A new sheet, which the caller owns.
STDAPI CreateResizablePropertySheet(IUnknown** ppSheet) {
    return host::guarded([&] {
        if (ppSheet == nullptr) {
            return E_POINTER;
        }
        host::hand_out<IUnknown>(host::make<host::property_sheet>()->unknown(), ppSheet);
        return S_OK;
    });
}
