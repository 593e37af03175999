#include "platform/win32/frame/accessible_name.h"

#include <windows.h>

#include <oleacc.h>

#include <iterator>

#include "platform/com_object.h"
#include "platform/win32/frame/window_text.h"

namespace frame {

namespace {

bool is_self(const VARIANT& child) {
    return child.vt == VT_I4 && child.lVal == CHILDID_SELF;
}

// The standard object of a window but for its name. Controls with a value say their text as the value even
// where the standard object does not.
class named_object : public platform::com_root<IAccessible> {
public:
    named_object(com_ptr<IAccessible> standard, CString name, HWND window)
        : m_standard(std::move(standard)), m_name(std::move(name)), m_window(window) {}

    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
        if (!is_self(child)) {
            return m_standard->get_accName(child, name);
        }
        return BugSlayerUtil::guard(BS_HERE, [&] {
            *name = platform::new_bstr(m_name);
            return S_OK;
        });
    }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override {
        const HRESULT hr = m_standard->get_accValue(child, value);
        if (hr == S_OK || !is_self(child) || !_has_value()) {
            return hr;
        }
        return BugSlayerUtil::guard(BS_HERE, [&] {
            *value = platform::new_bstr(window_text(m_window));
            return S_OK;
        });
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return m_standard->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT info, LCID locale, ITypeInfo** type) override {
        return m_standard->GetTypeInfo(info, locale, type);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return m_standard->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
        return m_standard->Invoke(id, iid, locale, flags, arguments, result, exception, argument);
    }
    STDMETHODIMP get_accParent(IDispatch** parent) override { return m_standard->get_accParent(parent); }
    STDMETHODIMP get_accChildCount(LONG* count) override { return m_standard->get_accChildCount(count); }
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override {
        return m_standard->get_accChild(child, object);
    }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* text) override {
        return m_standard->get_accDescription(child, text);
    }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
        return m_standard->get_accRole(child, role);
    }
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override {
        return m_standard->get_accState(child, state);
    }
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* text) override {
        return m_standard->get_accHelp(child, text);
    }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return m_standard->get_accHelpTopic(file, child, topic);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* keys) override {
        return m_standard->get_accKeyboardShortcut(child, keys);
    }
    STDMETHODIMP get_accFocus(VARIANT* focus) override { return m_standard->get_accFocus(focus); }
    STDMETHODIMP get_accSelection(VARIANT* selection) override {
        return m_standard->get_accSelection(selection);
    }
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
        return m_standard->get_accDefaultAction(child, action);
    }
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override { return m_standard->accSelect(flags, child); }
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        return m_standard->accLocation(left, top, width, height, child);
    }
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return m_standard->accNavigate(direction, start, end);
    }
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override {
        return m_standard->accHitTest(left, top, child);
    }
    STDMETHODIMP accDoDefaultAction(VARIANT child) override { return m_standard->accDoDefaultAction(child); }
    STDMETHODIMP put_accName(VARIANT child, BSTR name) override {
        return m_standard->put_accName(child, name);
    }
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) override {
        return m_standard->put_accValue(child, value);
    }

protected:
    HRESULT internal_query(REFIID iid, void** out) {
        return platform::com_root<IAccessible>::internal_query(
            IsEqualIID(iid, IID_IDispatch) ? __uuidof(IAccessible) : iid, out);
    }

private:
    bool _has_value() const {
        wchar_t name[32] = {};
        ::GetClassNameW(m_window, name, static_cast<int>(std::size(name)));
        const CString type = name;
        return type == L"Edit" || type == L"ComboBox" || type == L"SysDateTimePick32";
    }

    com_ptr<IAccessible> m_standard;
    CString m_name;
    HWND m_window;
};

}  // namespace

bool accessible_name::Attach(HWND control, const CString& name) {
    m_name = name;
    return SubclassWindow(control);
}

BOOL accessible_name::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                           DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0") || uMsg != WM_GETOBJECT) {
        return FALSE;
    }
    return take(guarded(BS_HERE, [&] { return _on_get_object(wParam, lParam); }), lResult);
}

answer accessible_name::_on_get_object(WPARAM wParam, LPARAM lParam) const {
    if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT)) {
        return declined;
    }
    com_ptr<IAccessible> standard;
    if (FAILED(::CreateStdAccessibleObject(m_hWnd, OBJID_CLIENT, __uuidof(IAccessible),
                                           static_cast<void**>(platform::receive(standard))))) {
        return declined;
    }
    const com_ptr<named_object> object = platform::make_com<named_object>(standard, m_name, m_hWnd);
    return ::LresultFromObject(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(object.get()));
}

}  // namespace frame
