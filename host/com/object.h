// The little that a COM object of this application needs: counting, an interface map, a guard.
#pragma once

#include <comdef.h>
#include <ole2.h>
#include <windows.h>

#include <atomic>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <exception>
#include <new>
#include <type_traits>
#include <utility>

inline void intrusive_ptr_add_ref(IUnknown* object) {
    object->AddRef();
}
inline void intrusive_ptr_release(IUnknown* object) {
    object->Release();
}

namespace host {

// A counted pointer.
template <class T>
using ref = boost::intrusive_ptr<T>;

// Base of a class that implements the interfaces; IUnknown is that of the first. Objects live on the
// heap, start with no reference and delete themselves with the last one.
template <class First, class... Rest>
class object : public First, public Rest... {
public:
    object(const object&) = delete;
    object& operator=(const object&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        if (IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(First))) {
            *out = static_cast<First*>(this);
        }
        ((IsEqualIID(iid, __uuidof(Rest)) ? void(*out = static_cast<Rest*>(this)) : void()), ...);
        if (*out == nullptr) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++m_count; }

    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --m_count;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    IUnknown* unknown() { return static_cast<First*>(this); }

protected:
    object() = default;
    virtual ~object() = default;

private:
    std::atomic<ULONG> m_count{0};
};

template <class... Interfaces>
void intrusive_ptr_add_ref(object<Interfaces...>* one) {
    one->AddRef();
}

template <class... Interfaces>
void intrusive_ptr_release(object<Interfaces...>* one) {
    one->Release();
}

template <class T, class... Arguments>
ref<T> make(Arguments&&... arguments) {
    return ref<T>(new T(std::forward<Arguments>(arguments)...));
}

// Gives an interface to an out-pointer of a COM operation, with a reference of its own.
template <class T>
void hand_out(T* object, T** out) {
    object->AddRef();
    *out = object;
}

// The interface T of an object, or null.
template <class T>
ref<T> query(IUnknown* object) {
    T* found = nullptr;
    if (object == nullptr || FAILED(object->QueryInterface(__uuidof(T), reinterpret_cast<void**>(&found)))) {
        return {};
    }
    return ref<T>(found, false);
}

// Runs the body of a COM operation; no exception leaves it.
template <class Body>
HRESULT guarded(Body body) noexcept {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const _com_error& error) {
        return error.Error();
    } catch (const std::exception&) {
        return E_FAIL;
    }
}

}  // namespace host
