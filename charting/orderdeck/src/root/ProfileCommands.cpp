#include "charting/orderdeck/src/root/ProfileCommands.h"

#include "charting/orderdeck/src/root/FindMainFrame.h"
#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/root/UILocker.h"
#include "platform/com_create.h"
#include "platform/desktop.h"
#include "platform/resources.h"
#include "unicomp/Simples/interface/FillText.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT s_id_profile_editor = 101;
constexpr UINT s_id_connect = 105;
constexpr UINT s_id_disconnect = 106;
constexpr UINT s_id_edit = 107;
constexpr UINT s_id_disconnect_first = 123;
constexpr UINT s_id_symbol_mapping = 233;

bool is_up(CProfileWrap& profile) {
    const ETM_ConnectionChanged state = profile.get_ConnectionState(true);
    return state == eTM_CC_Connected || state == eTM_CC_Connecting;
}

CString name_line(UINT id, CProfileWrap& profile) {
    return resource_string::text(id) + L" " + profile.get_Name(true);
}

// The host's menus are locked while this lives.
class ui_lock {
public:
    ui_lock() : m_lock(m_global->get_OnCommand().get(), m_global->get_Hwnd()) {}

private:
    CGlobalData m_global;
    SW::CUILocker m_lock;
};

ULONGLONG handle_value(HWND window) {
    return reinterpret_cast<ULONG_PTR>(window);
}

}  // namespace

HRESULT CToggleProfConnectCmd::_execute() {
    CProfileWrap& profile = target();
    // The last known state, as in the name: the user gets what the line said.
    if (is_up(profile)) {
        profile.Disconnect(FindMainFrame());
    } else {
        profile.Connect();
    }
    return S_OK;
}

CString CToggleProfConnectCmd::_get_name() {
    CProfileWrap& profile = target();
    return name_line(is_up(profile) ? s_id_disconnect : s_id_connect, profile);
}

HRESULT CEditProfCmd::_execute() {
    CProfileWrap& profile = target();
    if (!BS_ASSERT(_get_enabled() == VARIANT_TRUE)) {
        _com_issue_error(S_FALSE);
    }
    const ui_lock lock;
    // Any state but disconnected has a connection to lose, one being made included.
    if (profile.get_ConnectionState(true) != eTM_CC_Disconnected) {
        const CString text =
            Unicomp::fill_text(resource_string::text(s_id_disconnect_first), {profile.get_Name(true)});
        platform::port<platform::desktop>::get().message_box(
            FindMainFrame(), text, platform::main_version_string(L"ProductName"), MB_OK);
        return S_OK;
    }
    // The wrapper reports a failure; the user has seen the dialog or not, the line did its work.
    profile.ShowSettings(handle_value(FindMainFrame()));
    return S_OK;
}

CString CEditProfCmd::_get_name() {
    return name_line(s_id_edit, target());
}

VARIANT_BOOL CEditProfCmd::_get_enabled() {
    return target().HaveSettings(true) ? VARIANT_TRUE : VARIANT_FALSE;
}

HRESULT CShowProfEditorCmd::_execute() {
    const ui_lock lock;
    com_ptr<IProfileEditor> editor;
    const HRESULT hr = platform::create_running(CLSID_ProfileEditor, editor);
    if (FAILED(hr) && hr != E_NOINTERFACE) {
        _com_issue_error(hr);
    }
    BS_REQUIRE(editor, E_POINTER);
    // What the editor says of itself concerns nobody here.
    editor->Show(handle_value(FindMainFrame()));
    return S_OK;
}

CString CShowProfEditorCmd::_get_name() {
    return resource_string::text(s_id_profile_editor);
}

HRESULT CSymbolMappingCmd::_execute() {
    CProfileWrap& profile = target();
    com_ptr<symbol_mapping::ISymbolMapping> mapping;
    CoCreateInstance(CLSID_SymbolMapping, nullptr, CLSCTX_ALL, __uuidof(symbol_mapping::ISymbolMapping),
                     static_cast<void**>(platform::receive(mapping)));
    BS_REQUIRE(mapping, E_POINTER);
    const ui_lock lock;
    const _bstr_t name(platform::new_bstr(profile.get_Name(true)), false);
    const HRESULT hr = mapping->ShowDialog(handle_value(CGlobalData()->get_Hwnd()), name);
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(BS_HERE, "SUCCEEDED(hr)", hr);
        _com_issue_error(hr);
    }
    return S_OK;
}

CString CSymbolMappingCmd::_get_name() {
    return resource_string::text(s_id_symbol_mapping);
}

}  // namespace OV_OrderDeck
