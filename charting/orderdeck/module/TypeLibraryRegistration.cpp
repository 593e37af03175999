#include "charting/orderdeck/module/TypeLibraryRegistration.h"

#include "platform/com_ptr.h"

namespace OV_OrderDeck {
namespace {

constexpr WORD MajorVersion = 1;
constexpr WORD MinorVersion = 0;

// An operation that only some systems have; null where it is missing. Those for the user take what those
// for the machine take.
template <class Function>
Function* oleaut_function(const char* name) {
    HMODULE const library = GetModuleHandleW(L"OLEAUT32.DLL");
    FARPROC const found = library != nullptr ? GetProcAddress(library, name) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

}  // namespace

HRESULT register_type_library(const CString& module_path) {
    com_ptr<ITypeLib> library;
    HRESULT hr = LoadTypeLibEx(module_path.c_str(), REGKIND_NONE, platform::receive(library));
    if (FAILED(hr)) {
        return hr;
    }
    CString path = module_path;
    CString folder = module_path.substr(0, module_path.find_last_of(L"\\/"));
    auto* const for_user = oleaut_function<decltype(RegisterTypeLib)>("RegisterTypeLibForUser");
    if (for_user != nullptr) {
        return for_user(library.get(), path.data(), folder.data());
    }
    return RegisterTypeLib(library.get(), path.data(), folder.data());
}

HRESULT unregister_type_library(REFGUID libid) {
    auto* const for_user = oleaut_function<decltype(UnRegisterTypeLib)>("UnRegisterTypeLibForUser");
    const HRESULT hr = for_user != nullptr
                           ? for_user(libid, MajorVersion, MinorVersion, LOCALE_NEUTRAL, SYS_WIN64)
                           : UnRegisterTypeLib(libid, MajorVersion, MinorVersion, LOCALE_NEUTRAL, SYS_WIN64);
    BSTR path = nullptr;
    if (FAILED(hr) &&
        FAILED(QueryPathOfRegTypeLib(libid, MajorVersion, MinorVersion, LOCALE_NEUTRAL, &path))) {
        return S_OK;
    }
    SysFreeString(path);
    return hr;
}

}  // namespace OV_OrderDeck
