// One object of a type per process, counted by its users.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <new>

#include "diagnostics/BugSlayerUtil.h"

namespace ov {

// A lock that one thread may take again while it has it.
class CCriticalSection {
public:
    void lock() { m_mutex.lock(); }
    void unlock() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};

// The object and the number of its users. m_Object is empty when there was no memory for it.
template <class T>
class CSingleton {
public:
    CSingleton() : m_Object(new (std::nothrow) T) {}
    ~CSingleton() { BS_ASSERT_TEXT(m_Object, "m_Object.get()"); }
    CSingleton(const CSingleton&) = delete;
    CSingleton& operator=(const CSingleton&) = delete;

    std::unique_ptr<T> m_Object;
    std::atomic<LONG> m_Count{0};
};

// The place of the one singleton of a type. Any thread.
template <class T>
class CProcessSingleton {
public:
    enum operation { add_reference, release };

    // add_reference makes the singleton when it is missing and counts one user more; null without
    // memory. release counts one less, and the last one deletes the singleton; it always gives null.
    static CSingleton<T>* SingletonAccess(operation what) {
        return what == add_reference ? _add_reference() : _release();
    }

    static CCriticalSection& CriticalSection() {
        static CCriticalSection section;
        return section;
    }

    // Null while nobody has a reference. Under the critical section.
    static CSingleton<T>* Existing() { return s_singleton; }

private:
    static CSingleton<T>* _add_reference() {
        const std::lock_guard guard(CriticalSection());
        if (s_singleton == nullptr) {
            try {
                s_singleton = new CSingleton<T>;
            } catch (const std::bad_alloc&) {
                return nullptr;
            }
        }
        ++s_singleton->m_Count;
        return s_singleton;
    }

    static CSingleton<T>* _release() {
        std::unique_ptr<CSingleton<T>> last;
        {
            const std::lock_guard guard(CriticalSection());
            if (!BS_ASSERT_TEXT(s_singleton != nullptr, "Singleton")) {
                return nullptr;
            }
            const LONG Result = --s_singleton->m_Count;
            BS_ASSERT_TEXT(Result >= 0, "Result>=0");
            if (Result == 0) {
                last.reset(s_singleton);
                s_singleton = nullptr;
            }
        }
        // What the object releases may come back for a new singleton, so the lock is not held here.
        return nullptr;
    }

    inline static CSingleton<T>* s_singleton = nullptr;
};

// What a client keeps: the singleton lives at least as long as this object.
template <class T>
class CProcessSingletonAccessor {
public:
    CProcessSingletonAccessor() { _reference(); }
    ~CProcessSingletonAccessor() {
        if (m_referenced) {
            CProcessSingleton<T>::SingletonAccess(CProcessSingleton<T>::release);
        }
    }
    CProcessSingletonAccessor(const CProcessSingletonAccessor&) = delete;
    CProcessSingletonAccessor& operator=(const CProcessSingletonAccessor&) = delete;

    // Never null: reports an error and throws when there is no object.
    T* GetObject() {
        const std::lock_guard guard(CProcessSingleton<T>::CriticalSection());
        CSingleton<T>* singleton = CProcessSingleton<T>::Existing();
        if (singleton == nullptr) {
            singleton = _reference();
        }
        if (singleton == nullptr) {
            BugSlayerUtil::throw_error(BS_HERE, "Singleton");
        }
        if (!singleton->m_Object) {
            BugSlayerUtil::throw_error(BS_HERE, "m_Object.get()");
        }
        return singleton->m_Object.get();
    }

    T* operator->() { return GetObject(); }

private:
    CSingleton<T>* _reference() {
        CSingleton<T>* const singleton =
            CProcessSingleton<T>::SingletonAccess(CProcessSingleton<T>::add_reference);
        m_referenced = singleton != nullptr;
        return singleton;
    }

    unsigned char m_mode = 0;
    bool m_referenced = false;
};

}  // namespace ov
