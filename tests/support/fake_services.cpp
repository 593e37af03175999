#include "tests/support/fake_services.h"

namespace test {

HRESULT FakeOnCommand::Execute(LONG lCommand, VARIANT vParam) {
    std::string parameter = "vt(" + std::to_string(V_VT(&vParam)) + ")";
    if (V_VT(&vParam) == VT_EMPTY) {
        parameter = "empty";
    } else if (V_VT(&vParam) == VT_I4) {
        parameter = std::to_string(V_I4(&vParam));
    }
    return m_host.enter("OnCommand", {}, "Execute", std::to_string(lCommand) + ", " + parameter).hr;
}

HRESULT FakeDisconnectConfirmer::Confirm(LONG hOwner, ITC_TradingProfile* pProfile) {
    std::string name = "null";
    if (pProfile != nullptr) {
        _bstr_t text;
        pProfile->get_Name(text.GetAddress());
        name = "\"" + narrow(platform::text_of(text)) + "\"";
    }
    const auto told = m_host.enter(m_kind, {}, "Confirm", std::to_string(hOwner) + ", " + name);
    return told.hr != S_OK ? told.hr : answer;
}

HRESULT FakeProfileEditor::Show(ULONGLONG hOwner) {
    return m_host.enter(m_kind, {}, "Show", std::to_string(hOwner)).hr;
}

HRESULT FakeSymbolMapping::ShowDialog(ULONGLONG hOwner, BSTR sProfileName) {
    const std::string name = "\"" + narrow(platform::text_of(sProfileName)) + "\"";
    return m_host.enter("SymbolMapping", {}, "ShowDialog", std::to_string(hOwner) + ", " + name).hr;
}

}  // namespace test
