#pragma once

#include "OrderDeck.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/com_object.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// What a command acts on: a profile's wrapper or, for one of them, the host's collection of profiles.
template <class Target>
class CProfileCommandBase {
public:
    com_ptr<Target> m_pProfile;

protected:
    // Reports and throws _com_error (E_POINTER) when there is none.
    Target& target() const {
        if (!m_pProfile) {
            BS_RAISE("", E_POINTER);
        }
        return *m_pProfile;
    }
};

// One line of a profile menu; T says what differs from a line that does nothing: _execute, _execute_ex,
// _get_name, _get_enabled. All on the bar's thread.
template <class T>
class CProfileCommand : public platform::com_root<IOD_ProfileCmd> {
public:
    STDMETHODIMP Execute() noexcept override {
        return BugSlayerUtil::guard(BS_HERE, [&] { return derived()._execute(); });
    }

    STDMETHODIMP ExecuteEx(VARIANT vParam) noexcept override {
        return BugSlayerUtil::guard(BS_HERE, [&] { return derived()._execute_ex(vParam); });
    }

    STDMETHODIMP get_Name(BSTR* pVal) noexcept override {
        return give(pVal, [&] { return platform::new_bstr(derived()._get_name()); });
    }

    STDMETHODIMP get_Enabled(VARIANT_BOOL* pVal) noexcept override {
        return give(pVal, [&] { return derived()._get_enabled(); });
    }

    STDMETHODIMP get_Checked(VARIANT_BOOL* pVal) noexcept override {
        return give(pVal, [] { return VARIANT_FALSE; });
    }

protected:
    HRESULT _execute() { return S_FALSE; }
    HRESULT _execute_ex(const VARIANT&) { return S_FALSE; }
    CString _get_name() { return {}; }
    VARIANT_BOOL _get_enabled() { return VARIANT_TRUE; }

private:
    T& derived() { return static_cast<T&>(*this); }

    template <class Value, class Source>
    static HRESULT give(Value* out, Source source) noexcept {
        if (out == nullptr) {
            return E_INVALIDARG;
        }
        return BugSlayerUtil::guard(BS_HERE, [&] {
            *out = source();
            return S_OK;
        });
    }
};

}  // namespace OV_OrderDeck
