// The frame of a COM object: interface map, atomic count, and the count of live objects that keeps
// the module loaded.
#pragma once

#include <atomic>
#include <utility>

#include "platform/com_ptr.h"

namespace platform {

// Live objects and factory locks of this module. 0 means that the module may be unloaded.
inline std::atomic<LONG>& module_lock_count() {
    static std::atomic<LONG> count{0};
    return count;
}

// Base of a class that implements the given interfaces; its interface map answers them and IUnknown,
// whose identity is that of the first. The count is atomic, so references may be dropped on any
// thread. The class itself is completed by com_object or com_cached_object.
template <class First, class... Rest>
class com_root : public First, public Rest... {
public:
    com_root(const com_root&) = delete;
    com_root& operator=(const com_root&) = delete;

    IUnknown* GetUnknown() { return static_cast<First*>(this); }

    // In use only while the object dies: references come and go then without a second end.
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override { return internal_query(iid, out); }
    STDMETHODIMP_(ULONG) AddRef() override { return internal_add_ref(); }
    STDMETHODIMP_(ULONG) Release() override { return internal_release(); }

protected:
    com_root() = default;
    virtual ~com_root() = default;

    ULONG internal_add_ref() { return ++m_refs; }
    ULONG internal_release() { return --m_refs; }

    HRESULT internal_query(REFIID iid, void** out) {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        if (IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(First))) {
            *out = static_cast<First*>(this);
        } else {
            ((IsEqualIID(iid, __uuidof(Rest)) ? void(*out = static_cast<Rest*>(this)) : void()), ...);
        }
        if (*out == nullptr) {
            return E_NOINTERFACE;
        }
        GetUnknown()->AddRef();
        return S_OK;
    }

private:
    std::atomic<ULONG> m_refs{0};
};

// T on the heap: keeps the module loaded and deletes itself with its last reference.
template <class T>
class com_object final : public T {
public:
    template <class... Args>
    explicit com_object(Args&&... args) : T(std::forward<Args>(args)...) {
        ++module_lock_count();
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override { return this->internal_query(iid, out); }
    STDMETHODIMP_(ULONG) AddRef() override { return this->internal_add_ref(); }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = this->internal_release();
        if (left == 0) {
            delete this;
        }
        return left;
    }

private:
    ~com_object() override { --module_lock_count(); }
};

// A new T. Throws what its constructor throws.
template <class T, class... Args>
com_ptr<T> make_com(Args&&... args) {
    return com_ptr<T>(new com_object<T>(std::forward<Args>(args)...));
}

}  // namespace platform
