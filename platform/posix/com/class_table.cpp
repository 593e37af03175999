#include <algorithm>
#include <mutex>
#include <new>
#include <vector>

#include "platform/com_ptr.h"
#include "platform/posix/com/apartment.h"

namespace {

struct class_entry {
    DWORD cookie;
    CLSID id;
    DWORD context;
    posix_com::apartment_id apartment;
    com_ptr<IUnknown> factory;
};

struct class_table {
    std::mutex lock;
    std::vector<class_entry> entries;
    DWORD last_cookie = 0;
};

// Never destroyed: objects with static storage may come here while the process ends.
class_table& table() {
    static auto* const the_table = new class_table;
    return *the_table;
}

com_ptr<IUnknown> find_factory(REFCLSID id, DWORD context) {
    auto& classes = table();
    const std::lock_guard guard(classes.lock);
    const auto entry = std::find_if(
        classes.entries.begin(), classes.entries.end(),
        [&](const class_entry& e) { return IsEqualCLSID(e.id, id) && (e.context & context) != 0; });
    return entry == classes.entries.end() ? com_ptr<IUnknown>() : entry->factory;
}

}  // namespace

namespace posix_com {

void revoke_all_of(apartment_id apartment) noexcept {
    auto& classes = table();
    for (;;) {
        // Released after the lock is given back: a factory may come here again as it goes.
        com_ptr<IUnknown> factory;
        const std::lock_guard guard(classes.lock);
        const auto entry = std::find_if(classes.entries.begin(), classes.entries.end(),
                                        [&](const class_entry& e) { return e.apartment == apartment; });
        if (entry == classes.entries.end()) {
            return;
        }
        factory.swap(entry->factory);
        classes.entries.erase(entry);
    }
}

}  // namespace posix_com

HRESULT CoRegisterClassObject(REFCLSID rclsid, LPUNKNOWN pUnk, DWORD dwClsContext, DWORD /*flags*/,
                              LPDWORD lpdwRegister) noexcept {
    if (pUnk == nullptr || lpdwRegister == nullptr) {
        return E_INVALIDARG;
    }
    const auto apartment = posix_com::current_apartment();
    if (apartment == posix_com::k_no_apartment) {
        return CO_E_NOTINITIALIZED;
    }
    try {
        auto& classes = table();
        const std::lock_guard guard(classes.lock);
        classes.entries.push_back({classes.last_cookie + 1, rclsid, dwClsContext, apartment, pUnk});
        *lpdwRegister = ++classes.last_cookie;
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT CoRevokeClassObject(DWORD dwRegister) noexcept {
    const auto apartment = posix_com::current_apartment();
    if (apartment == posix_com::k_no_apartment) {
        return CO_E_NOTINITIALIZED;
    }
    auto& classes = table();
    com_ptr<IUnknown> factory;
    const std::lock_guard guard(classes.lock);
    const auto entry = std::find_if(classes.entries.begin(), classes.entries.end(),
                                    [&](const class_entry& e) { return e.cookie == dwRegister; });
    if (entry == classes.entries.end()) {
        return E_INVALIDARG;
    }
    if (entry->apartment != apartment) {
        return RPC_E_WRONG_THREAD;
    }
    factory.swap(entry->factory);
    classes.entries.erase(entry);
    return S_OK;
}

HRESULT CoGetClassObject(REFCLSID rclsid, DWORD dwClsContext, LPVOID /*pvReserved*/, REFIID riid,
                         LPVOID* ppv) {
    if (ppv == nullptr) {
        return E_INVALIDARG;
    }
    *ppv = nullptr;
    if (posix_com::current_apartment() == posix_com::k_no_apartment) {
        return CO_E_NOTINITIALIZED;
    }
    const com_ptr<IUnknown> factory = find_factory(rclsid, dwClsContext);
    return factory == nullptr ? REGDB_E_CLASSNOTREG : factory->QueryInterface(riid, ppv);
}

HRESULT CoCreateInstance(REFCLSID rclsid, LPUNKNOWN pUnkOuter, DWORD dwClsContext, REFIID riid, LPVOID* ppv) {
    if (ppv == nullptr) {
        return E_POINTER;
    }
    *ppv = nullptr;
    void* raw = nullptr;
    const HRESULT hr = CoGetClassObject(rclsid, dwClsContext, nullptr, IID_IClassFactory, &raw);
    if (FAILED(hr)) {
        return hr;
    }
    const com_ptr<IClassFactory> factory(static_cast<IClassFactory*>(raw), false);
    return factory->CreateInstance(pUnkOuter, riid, ppv);
}
