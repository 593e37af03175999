#include "charting/orderdeck/module/OrderDeckModule.h"

#include "charting/orderdeck/module/GuardedFactory.h"
#include "charting/orderdeck/module/TypeLibraryRegistration.h"
#include "charting/orderdeck/src/lookup/LookupImpl.h"
#include "charting/orderdeck/src/root/OrderDeckObj.h"

extern "C" BOOLEAN NTAPI RtlDllShutdownInProgress(void);

namespace OV_OrderDeck {

COrderDeckModule _Module;

namespace {

constexpr UINT idr_Module = 101;
constexpr UINT idr_Class = 102;
constexpr LCID RegistrationLocale = 2048;

template <class Factory>
com_ptr<IClassFactory> make_factory() {
    return com_ptr<IClassFactory>(new platform::com_cached_object<CGuardedFactory<Factory>>);
}

// Registration texts must not depend on the language of the user who registers.
class registration_locale {
public:
    registration_locale() : m_saved(GetThreadLocale()) { SetThreadLocale(RegistrationLocale); }
    ~registration_locale() { SetThreadLocale(m_saved); }
    registration_locale(const registration_locale&) = delete;
    registration_locale& operator=(const registration_locale&) = delete;

private:
    LCID m_saved;
};

CString guid_text(REFGUID guid) {
    wchar_t text[39] = {};
    StringFromGUID2(guid, text, 39);
    return text;
}

}  // namespace

COrderDeckModule::COrderDeckModule()
    : m_objects{{CLSID_COrderDeckObj, L"COrderDeckObj Object", L"OrderDeck.OrderDeckObj",
                 make_factory<platform::singleton_factory<COrderDeckObj>>, nullptr},
                {__uuidof(LookupImpl), L"CLookupImpl Object", L"OrderDeck.LookupImpl",
                 make_factory<platform::class_factory<CLookupImpl>>, nullptr}} {}

COrderDeckModule::~COrderDeckModule() {
    if (RtlDllShutdownInProgress()) {
        for (object_map_entry& entry : m_objects) {
            entry.factory.detach();
        }
    }
}

BOOL COrderDeckModule::Attach(HINSTANCE instance) {
    m_instance = instance;
    return TRUE;
}

HRESULT COrderDeckModule::GetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    for (object_map_entry& entry : m_objects) {
        if (IsEqualCLSID(entry.clsid, clsid)) {
            const std::lock_guard guard(m_mutex);
            if (!entry.factory) {
                entry.factory = entry.make_factory();
            }
            return entry.factory->QueryInterface(iid, out);
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

// For everybody, or for the user alone where the rights for that are missing.
HRESULT COrderDeckModule::RegisterServer() {
    const registration_locale locale;
    HRESULT hr = _register_for(scope::machine);
    if (hr == E_ACCESSDENIED) {
        hr = _register_for(scope::user);
    }
    if (SUCCEEDED(hr)) {
        hr = register_type_library(_file_name());
    }
    return hr;
}

HRESULT COrderDeckModule::UnregisterServer() {
    const registration_locale locale;
    HRESULT hr = unregister_type_library(LIBID_OrderDeckLib);
    // Wherever it was registered, by whomever.
    for (const scope where : {scope::user, scope::machine}) {
        if (SUCCEEDED(hr)) {
            hr = _unregister_for(where);
        }
    }
    return hr;
}

HRESULT COrderDeckModule::_register_for(scope where) const {
    HRESULT hr = _run_script(where, idr_Module, true, nullptr);
    for (const object_map_entry& entry : m_objects) {
        if (SUCCEEDED(hr)) {
            hr = _run_script(where, idr_Class, true, &entry);
        }
    }
    return hr;
}

HRESULT COrderDeckModule::_unregister_for(scope where) const {
    HRESULT hr = S_OK;
    for (const object_map_entry& entry : m_objects) {
        if (SUCCEEDED(hr)) {
            hr = _run_script(where, idr_Class, false, &entry);
        }
    }
    return SUCCEEDED(hr) ? _run_script(where, idr_Module, false, nullptr) : hr;
}

HRESULT COrderDeckModule::_run_script(scope where, UINT id, bool bRegister,
                                      const object_map_entry* entry) const {
    platform::registrar registrar(where);
    registrar.AddReplacement(L"APPID", guid_text(LIBID_OrderDeckLib));
    registrar.AddReplacement(L"MODULE", _file_name());
    if (entry != nullptr) {
        registrar.AddReplacement(L"FriendlyName", entry->friendly_name);
        registrar.AddReplacement(L"PROGID", entry->progid);
        registrar.AddReplacement(L"CLSID", guid_text(entry->clsid));
    }
    const CString script = _resource_text(id);
    return bRegister ? registrar.Register(script) : registrar.Unregister(script);
}

CString COrderDeckModule::_file_name() const {
    CString path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(m_instance, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
        }
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

// Scripts are plain ASCII.
CString COrderDeckModule::_resource_text(UINT id) const {
    HRSRC const found = FindResourceW(m_instance, MAKEINTRESOURCEW(id), L"REGISTRY");
    HGLOBAL const loaded = found != nullptr ? LoadResource(m_instance, found) : nullptr;
    if (loaded == nullptr) {
        _com_issue_error(HRESULT_FROM_WIN32(GetLastError()));
    }
    const auto* const bytes = static_cast<const char*>(LockResource(loaded));
    return {bytes, bytes + SizeofResource(m_instance, found)};
}

}  // namespace OV_OrderDeck
