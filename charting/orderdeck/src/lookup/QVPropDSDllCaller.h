#pragma once

#include "platform/com.h"

namespace OV_OrderDeck {

// Makes objects of the property sheet library PropDS2_x64.dll, which is optional: it is taken where the
// process has it already, else from the program's and the system's folder only. Window thread.
class CQVPropDSDllCaller {
public:
    CQVPropDSDllCaller() = default;
    CQVPropDSDllCaller(const CQVPropDSDllCaller&) = delete;
    CQVPropDSDllCaller& operator=(const CQVPropDSDllCaller&) = delete;

    // A new sheet's interface, which the caller owns; null on failure. 0x8007007E without the library,
    // 0x8007007F when it has no such export, else the result of making the sheet or of asking it.
    HRESULT CreateObject(REFIID iid, void** object);

protected:
    ~CQVPropDSDllCaller() = default;

    // The library when this object loaded it. It stays loaded: a sheet's code may outlive its caller.
    HMODULE m_dll = nullptr;

private:
    HMODULE _library();
};

}  // namespace OV_OrderDeck
