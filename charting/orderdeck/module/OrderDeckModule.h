#pragma once

#include <mutex>
#include <vector>

#include "platform/com_ptr.h"
#include "platform/registrar.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// {982cccaa-cfd2-4374-b806-e4915078b52d}
inline constexpr GUID LIBID_OrderDeckLib = {
    0x982cccaa, 0xcfd2, 0x4374, {0xb8, 0x06, 0xe4, 0x91, 0x50, 0x78, 0xb5, 0x2d}};

// One class that the module serves.
struct object_map_entry {
    CLSID clsid;
    // The friendly name of the registration and the ProgID without its version.
    const wchar_t* friendly_name;
    const wchar_t* progid;
    com_ptr<IClassFactory> (*make_factory)();
    // Made on first demand and kept.
    com_ptr<IClassFactory> factory;
};

// The module: its handle, the classes that it serves, and its registration. Any thread.
class COrderDeckModule {
public:
    COrderDeckModule();
    // Lets go of the kept factories, unless the process is ending: then the threads that their objects
    // need are gone.
    ~COrderDeckModule();

    // Takes the library whose resources and path are those of the module. Before anything else; always TRUE.
    BOOL Attach(HINSTANCE instance);
    // The factory of a class, the same at each call, counted for the caller. CLASS_E_CLASSNOTAVAILABLE for
    // a class that the module does not serve, E_POINTER for a null out-pointer.
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** out);
    // The application, the classes and the type library, in that order; the first failure ends it. Without
    // the rights for the machine's classes those of the user take them.
    HRESULT RegisterServer();
    // The reverse, for user and machine; S_OK when nothing was registered.
    HRESULT UnregisterServer();

private:
    using scope = platform::registrar::scope;

    HRESULT _register_for(scope where) const;
    HRESULT _unregister_for(scope where) const;
    HRESULT _run_script(scope where, UINT id, bool bRegister, const object_map_entry* entry) const;
    CString _file_name() const;
    CString _resource_text(UINT id) const;

    HINSTANCE m_instance = nullptr;
    std::mutex m_mutex;
    std::vector<object_map_entry> m_objects;
};

extern COrderDeckModule _Module;

}  // namespace OV_OrderDeck
