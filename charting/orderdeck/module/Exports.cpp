// The five entry points of the module.

#include "charting/orderdeck/module/OrderDeckModule.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/com_object.h"

using BugSlayerUtil::guard;
using OV_OrderDeck::_Module;

// Under the loader's lock: does next to nothing.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    return reason == DLL_PROCESS_ATTACH ? _Module.Attach(instance) : TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* out) {
    return guard(BS_HERE, [&] { return _Module.GetClassObject(clsid, iid, out); });
}

STDAPI DllCanUnloadNow() {
    return platform::module_lock_count() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return guard(BS_HERE, [] { return _Module.RegisterServer(); });
}

STDAPI DllUnregisterServer() {
    return guard(BS_HERE, [] { return _Module.UnregisterServer(); });
}
