// Counted COM pointers.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <type_traits>

#include "platform/com.h"

template <class T>
requires std::is_base_of_v<IUnknown, T>
inline void intrusive_ptr_add_ref(T* object) {
    object->AddRef();
}

template <class T>
requires std::is_base_of_v<IUnknown, T>
inline void intrusive_ptr_release(T* object) {
    object->Release();
}

template <class T>
using com_ptr = boost::intrusive_ptr<T>;

namespace platform {

// Hands a counted pointer to an operation that writes an out-pointer, and keeps what was written
// without another reference. What the pointer held before is released first.
template <class T>
class receiver {
public:
    explicit receiver(com_ptr<T>& target) : m_target(target) { m_target.reset(); }
    ~receiver() { m_target.reset(m_raw, false); }
    receiver(const receiver&) = delete;
    receiver& operator=(const receiver&) = delete;
    operator T**() { return &m_raw; }
    explicit operator void**() { return reinterpret_cast<void**>(&m_raw); }

private:
    com_ptr<T>& m_target;
    T* m_raw = nullptr;
};

template <class T>
receiver<T> receive(com_ptr<T>& target) {
    return receiver<T>(target);
}

// The interface T of an object. Null for a null object and for E_NOINTERFACE; any other failure is
// thrown as _com_error.
template <class T>
com_ptr<T> query(IUnknown* object) {
    if (object == nullptr) {
        return {};
    }
    void* raw = nullptr;
    const HRESULT hr = object->QueryInterface(__uuidof(T), &raw);
    if (hr == E_NOINTERFACE) {
        return {};
    }
    if (FAILED(hr)) {
        _com_issue_error(hr);
    }
    return com_ptr<T>(static_cast<T*>(raw), false);
}

template <class T, class U>
com_ptr<T> query(const com_ptr<U>& object) {
    return query<T>(static_cast<IUnknown*>(object.get()));
}

}  // namespace platform
