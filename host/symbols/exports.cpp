// OrderDeckSymbols.dll: an in-process server of the symbol classes. The application declares them in its
// manifest, so that they are found from every thread and nothing is registered.
#include <windows.h>

#include <functional>

#include "com/class_object.h"
#include "symbols/choice.h"
#include "symbols/module.h"
#include "symbols/page.h"
#include "symbols/query.h"
#include "symbols/table.h"

namespace {

template <class T, class... Arguments>
host::ref<IUnknown> make_unknown(Arguments&&... arguments) {
    return host::ref<IUnknown>(host::make<T>(std::forward<Arguments>(arguments)...)->unknown());
}

std::function<host::ref<IUnknown>()> creator_of(REFCLSID clsid) {
    if (IsEqualCLSID(clsid, CLSID_SymbolQuery)) {
        return [] { return make_unknown<host::symbol_query>(host::module_symbols()); };
    }
    if (IsEqualCLSID(clsid, CLSID_IovTable)) {
        return [] { return make_unknown<host::symbol_table>(); };
    }
    if (IsEqualCLSID(clsid, CLSID_SymbolRequest)) {
        return [] { return make_unknown<host::symbol_request>(); };
    }
    if (IsEqualCLSID(clsid, CLSID_DataProperty)) {
        return [] { return make_unknown<host::symbol_choice>(host::module_symbols()); };
    }
    if (IsEqualCLSID(clsid, GUID_SymbolPage) || IsEqualCLSID(clsid, GUID_InstrumentPage)) {
        return [] { return make_unknown<host::symbol_page>(); };
    }
    return nullptr;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    return host::guarded([&]() -> HRESULT {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        auto create = creator_of(clsid);
        if (!create) {
            return CLASS_E_CLASSNOTAVAILABLE;
        }
        return host::make<host::class_object>(std::move(create))->QueryInterface(iid, out);
    });
}

// Tables keep pointers into the store, so the library stays as long as the process.
STDAPI DllCanUnloadNow() {
    return S_FALSE;
}
