// Class objects that live in this process only: no registry, no server of their own.
#pragma once

#include <functional>
#include <vector>

#include "com/object.h"

namespace host {

class class_object : public object<IClassFactory> {
public:
    // create makes a new object, or throws.
    explicit class_object(std::function<ref<IUnknown>()> create) : m_create(std::move(create)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override;
    // The host itself decides how long its classes live.
    STDMETHODIMP LockServer(BOOL) noexcept override { return S_OK; }

private:
    std::function<ref<IUnknown>()> m_create;
};

// Classes that CoCreateInstance finds in this apartment, as long as this object lives.
class class_registry {
public:
    class_registry() = default;
    ~class_registry();
    class_registry(const class_registry&) = delete;
    class_registry& operator=(const class_registry&) = delete;

    // Throw _com_error when the system refuses.
    void add(REFCLSID clsid, std::function<ref<IUnknown>()> create);
    void add_factory(REFCLSID clsid, IUnknown* factory);

private:
    std::vector<DWORD> m_cookies;
};

}  // namespace host
