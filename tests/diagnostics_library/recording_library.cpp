// A diagnostics library that keeps every call it gets and answers as it is told. It implements
// IDebugObject from its header alone.
#include <atomic>
#include <map>
#include <mutex>
#include <string>

#include "diagnostics/IDebugObject.h"
#include "tests/diagnostics_library/debug_steps.h"

namespace {

std::wstring text_of(BSTR text) {
    if (text == nullptr) {
        return {};
    }
    // The length of a BSTR in bytes stands in front of its characters.
    const auto bytes = reinterpret_cast<const std::uint32_t*>(text)[-1];
    return {text, bytes / sizeof(wchar_t)};
}

recorded_value value_of(const VARIANT& value) {
    recorded_value result;
    result.type = value.vt;
    switch (value.vt) {
        case VT_BSTR:
            result.text = text_of(value.bstrVal);
            break;
        case VT_I4:
            result.integer = value.lVal;
            break;
        case VT_INT:
            result.integer = value.intVal;
            break;
        case VT_UI4:
            result.integer = value.ulVal;
            break;
        case VT_UI8:
            result.integer = static_cast<std::int64_t>(value.ullVal);
            break;
        case VT_BOOL:
            result.integer = value.boolVal;
            break;
        case VT_R8:
            result.real = value.dblVal;
            break;
        default:
            break;
    }
    return result;
}

class all_steps final : public debug_steps {
public:
    void lock() noexcept override { m_lock.lock(); }
    void unlock() noexcept override { m_lock.unlock(); }
    const std::vector<debug_step>& steps() const noexcept override { return m_steps; }
    const std::vector<processed_record>& records() const noexcept override { return m_records; }

    void clear() noexcept override {
        m_steps.clear();
        m_records.clear();
        m_answers.clear();
        m_give_no_record = false;
        m_action = nullptr;
    }
    void answer(const wchar_t* what, HRESULT result) noexcept override { m_answers[what] = result; }
    void give_no_record(bool none) noexcept override { m_give_no_record = none; }
    void at_each_step(void (*action)()) noexcept override { m_action = action; }

    HRESULT note(const wchar_t* what, unsigned record, const recorded_field& field = {}) {
        const std::lock_guard guard(m_lock);
        m_steps.push_back({what, record, field});
        if (m_action != nullptr) {
            m_action();
        }
        const auto found = m_answers.find(what);
        return found == m_answers.end() ? S_OK : found->second;
    }

    void processed(const processed_record& record) {
        const std::lock_guard guard(m_lock);
        m_records.push_back(record);
    }

    bool gives_record() {
        const std::lock_guard guard(m_lock);
        return !m_give_no_record;
    }

private:
    std::recursive_mutex m_lock;
    std::vector<debug_step> m_steps;
    std::vector<processed_record> m_records;
    std::map<std::wstring, HRESULT> m_answers;
    void (*m_action)() = nullptr;
    bool m_give_no_record = false;
};

// Never destroyed: the client may report to the very end of the process.
all_steps& the_steps() {
    static auto& steps = *new all_steps;
    return steps;
}

class counted : public IDebugObject {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        if (out == nullptr) {
            return E_POINTER;
        }
        const bool known = IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(IDebugObject));
        *out = known ? this : nullptr;
        if (known) {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_refs; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_refs;
        if (left == 0) {
            delete this;
        }
        return left;
    }
    HRESULT STDMETHODCALLTYPE Command(IDebugObject**, const wchar_t*, const VARIANT*, ULONG) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Get(const wchar_t*, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Set(const wchar_t*, const VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Failure(const wchar_t*) override { return E_NOTIMPL; }

protected:
    virtual ~counted() = default;

private:
    std::atomic<ULONG> m_refs{1};
};

class record final : public counted {
public:
    HRESULT STDMETHODCALLTYPE Get(const wchar_t* name, VARIANT* value) override {
        the_steps().note(L"GET", m_number, {name, {}});
        for (const recorded_field& field : m_fields.fields) {
            // Texts are never asked for by the client, so only what needs no allocation is given.
            if (field.name == name && field.value.type != VT_BSTR) {
                value->vt = field.value.type;
                value->llVal = field.value.integer;
                return S_OK;
            }
        }
        value->vt = VT_EMPTY;
        return DISP_E_MEMBERNOTFOUND;
    }

    HRESULT STDMETHODCALLTYPE Set(const wchar_t* name, const VARIANT* value) override {
        const recorded_field field{name, value_of(*value)};
        const HRESULT result = the_steps().note(L"SET", m_number, field);
        for (recorded_field& known : m_fields.fields) {
            if (known.name == name) {
                known = field;
                return result;
            }
        }
        m_fields.fields.push_back(field);
        return result;
    }

    HRESULT judge(const wchar_t* command) {
        if (std::wstring(command) == L"PROCESS") {
            m_fields.record = m_number;
            the_steps().processed(m_fields);
        }
        return the_steps().note(command, m_number);
    }

    unsigned number() const { return m_number; }

private:
    ~record() override { the_steps().note(L"RELEASE", m_number); }

    inline static std::atomic<unsigned> s_last{0};

    const unsigned m_number = ++s_last;
    processed_record m_fields;
};

class library_object final : public counted {
public:
    HRESULT STDMETHODCALLTYPE Command(IDebugObject** slot, const wchar_t* command, const VARIANT*,
                                      ULONG) override {
        if (std::wstring(command) == L"CREATE") {
            return create(slot);
        }
        return slot == nullptr ? the_steps().note(command, 0) : static_cast<record*>(*slot)->judge(command);
    }

    HRESULT STDMETHODCALLTYPE Failure(const wchar_t* client) override {
        recorded_field field;
        field.value.text = client;
        return the_steps().note(L"FAILURE", 0, field);
    }

private:
    static HRESULT create(IDebugObject** slot) {
        *slot = nullptr;
        const HRESULT result = the_steps().note(L"CREATE", 0);
        if (result == S_OK && the_steps().gives_record()) {
            *slot = new record;
        }
        return result;
    }
};

}  // namespace

extern "C" __attribute__((visibility("default"))) HRESULT STDMETHODCALLTYPE
BS_InitObject(IDebugObject** object) {
    *object = nullptr;
    const HRESULT result = the_steps().note(L"BS_InitObject", 0);
    if (SUCCEEDED(result)) {
        *object = new library_object;
    }
    return result;
}

extern "C" __attribute__((visibility("default"))) debug_steps* BS_Steps() {
    return &the_steps();
}
