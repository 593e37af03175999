// Class factories over the COM frame.
#pragma once

#include <mutex>

#include "platform/com_object.h"

namespace platform {

// T that somebody keeps for later: its first reference, the keeper's, does not count as a use of the
// module.
template <class T>
class com_cached_object final : public T {
public:
    using T::T;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override { return this->internal_query(iid, out); }
    STDMETHODIMP_(ULONG) AddRef() override {
        const ULONG count = this->internal_add_ref();
        if (count == 2) {
            ++module_lock_count();
        }
        return count;
    }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = this->internal_release();
        if (left == 1) {
            --module_lock_count();
        } else if (left == 0) {
            delete this;
        }
        return left;
    }

private:
    ~com_cached_object() override = default;
};

// What both kinds of factory share. Any thread.
class class_factory_base : public com_root<IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override {
        if (out == nullptr) {
            return E_POINTER;
        }
        *out = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        try {
            return create(iid, out);
        } catch (const _com_error& error) {
            return error.Error();
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (...) {
            return E_UNEXPECTED;
        }
    }

    STDMETHODIMP LockServer(BOOL lock) noexcept override {
        module_lock_count() += lock ? 1 : -1;
        return S_OK;
    }

protected:
    virtual HRESULT create(REFIID iid, void** out) = 0;
};

// A new T for each client.
template <class T>
class class_factory : public class_factory_base {
protected:
    HRESULT create(REFIID iid, void** out) override {
        const com_ptr<T> object = make_com<T>();
        return object->GetUnknown()->QueryInterface(iid, out);
    }
};

// One T for all clients, made for the first of them and kept until the factory goes.
template <class T>
class singleton_factory : public class_factory_base {
protected:
    HRESULT create(REFIID iid, void** out) override {
        const std::lock_guard guard(m_mutex);
        if (!m_object) {
            m_object.reset(new com_cached_object<T>);
        }
        return m_object->GetUnknown()->QueryInterface(iid, out);
    }

private:
    std::mutex m_mutex;
    com_ptr<T> m_object;
};

}  // namespace platform
