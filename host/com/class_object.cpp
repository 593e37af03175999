#include "com/class_object.h"

namespace host {

HRESULT class_object::CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept {
    return guarded([&] {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        return outer != nullptr ? CLASS_E_NOAGGREGATION : m_create()->QueryInterface(iid, out);
    });
}

class_registry::~class_registry() {
    for (const DWORD cookie : m_cookies) {
        CoRevokeClassObject(cookie);
    }
}

void class_registry::add(REFCLSID clsid, std::function<ref<IUnknown>()> create) {
    add_factory(clsid, make<class_object>(std::move(create)).get());
}

void class_registry::add_factory(REFCLSID clsid, IUnknown* factory) {
    DWORD cookie = 0;
    _com_util::CheckError(
        CoRegisterClassObject(clsid, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
    m_cookies.push_back(cookie);
}

}  // namespace host
