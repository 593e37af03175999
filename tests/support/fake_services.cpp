#include "tests/support/fake_services.h"

#include "tests/support/fake_profile.h"

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
    // Asked past the record, which keeps the component's own questions only.
    const auto* const profile = dynamic_cast<const FakeProfile*>(pProfile);
    const std::string name = profile != nullptr ? quoted(profile->name) : "null";
    const auto told = m_host.enter(m_kind, {}, "Confirm", std::to_string(hOwner) + ", " + name);
    return told.hr != S_OK ? told.hr : answer;
}

HRESULT FakeProfileEditor::Show(ULONGLONG hOwner) {
    return m_host.enter(m_kind, {}, "Show", std::to_string(hOwner)).hr;
}

HRESULT FakeSymbolMapping::ShowDialog(ULONGLONG hOwner, BSTR sProfileName) {
    return m_host
        .enter("SymbolMapping", {}, "ShowDialog", std::to_string(hOwner) + ", " + quoted(sProfileName))
        .hr;
}

}  // namespace test
