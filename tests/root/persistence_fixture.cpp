#include "tests/root/persistence_fixture.h"

#include <algorithm>
#include <array>

namespace test {
namespace {

using platform::registry_key;

constexpr CLSID lookup_clsid = {0x63afe10e, 0x1d65, 0x4006, {0xaa, 0x5e, 0xab, 0x09, 0x0a, 0x28, 0x76, 0xf8}};

std::string data_text(DWORD type, const std::vector<BYTE>& data) {
    if (type == REG_DWORD && data.size() == sizeof(DWORD)) {
        return std::to_string(*reinterpret_cast<const DWORD*>(data.data()));
    }
    const auto* const text = reinterpret_cast<const wchar_t*>(data.data());
    const std::size_t length = data.size() / sizeof(wchar_t);
    const bool ended = length != 0 && text[length - 1] == L'\0';
    return ended ? quoted(CString(text, length - 1)) : "no text";
}

void add_values(const registry_key& key, const std::string& path, texts& lines) {
    std::array<wchar_t, 256> name{};
    auto length = static_cast<DWORD>(name.size());
    for (DWORD index = 0; key.EnumValue(index, name.data(), length) == ERROR_SUCCESS; ++index) {
        DWORD type = 0;
        DWORD bytes = 0;
        EXPECT_EQ(key.QueryValue(name.data(), type, nullptr, bytes), ERROR_SUCCESS);
        std::vector<BYTE> data(bytes);
        EXPECT_EQ(key.QueryValue(name.data(), type, data.data(), bytes), ERROR_SUCCESS);
        lines.push_back(path + " " + quoted(CString(name.data())) + " " + std::to_string(type) + " " +
                        data_text(type, data));
        length = static_cast<DWORD>(name.size());
    }
}

void add_key(const registry_key& key, const std::string& path, texts& lines) {
    lines.push_back(path);
    add_values(key, path, lines);
    std::array<wchar_t, 256> name{};
    auto length = static_cast<DWORD>(name.size());
    for (DWORD index = 0; key.EnumKey(index, name.data(), length) == ERROR_SUCCESS; ++index) {
        registry_key below;
        EXPECT_EQ(below.Open(key.get(), name.data(), KEY_READ), ERROR_SUCCESS);
        add_key(below, path + "\\" + narrow(name.data()), lines);
        length = static_cast<DWORD>(name.size());
    }
}

// The text between two marks, and the marks' own.
bool takes(const std::string& call, const std::string& before, const std::string& after, std::string& part) {
    if (call.rfind(before, 0) != 0) {
        return false;
    }
    const std::size_t end = call.find(after, before.size());
    part = call.substr(before.size(), end - before.size());
    return end != std::string::npos;
}

}  // namespace

closing_host::closing_host()
    : confirmer(platform::make_com<FakeDisconnectConfirmer>(host)),
      lookup(platform::make_com<FakeLookup>(host)),
      m_confirmer_class(host, CLSID_DisconnectConfirmer, L"DisconnectConfirmer",
                        [this] { return com_ptr<IUnknown>(confirmer->GetUnknown()); }),
      m_lookup_class(host, lookup_clsid, L"Lookup",
                     [this] { return com_ptr<IUnknown>(lookup->GetUnknown()); }) {
    desktop.set_main_frame(desktop.make_window());
    lookup->missing = eODLR_Canceled;
    // Names are looked up where the service knows no ids.
    lookup->supported = false;
}

void closing_host::open(const std::vector<panel_state>& panels) {
    for (const panel_state& panel : panels) {
        add_profile(panel.name)->state = panel.connected ? eTM_CC_Connected : eTM_CC_Disconnected;
    }
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(root->put_ActiveTab(nullptr), S_OK);
    for (const panel_state& panel : panels) {
        if (panel.symbol_id != 0 || !panel.symbol_name.empty()) {
            const _bstr_t name(panel.symbol_name.c_str());
            OD_SSymbolInfo info{};
            info.id = panel.symbol_id;
            info.Name = name;
            EXPECT_EQ(root->put_SymbolInfo(_bstr_t((panel.name + L"-id").c_str()), &info), S_OK);
        }
    }
    host.clear();
    reports.clear();
}

texts stored() {
    texts lines;
    registry_key base;
    if (base.Open(HKEY_CURRENT_USER, root_host::path_of_records(), KEY_READ) == ERROR_SUCCESS) {
        registry_key profiles;
        add_values(base, ".", lines);
        if (profiles.Open(base.get(), L"Profiles", KEY_READ) == ERROR_SUCCESS) {
            add_key(profiles, "Profiles", lines);
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

texts restored(closing_host& host) {
    host.run_loop();
    texts lines;
    for (const std::string& call : host.host.calls()) {
        std::string part;
        if (takes(call, "Profile(", ").Connect()", part)) {
            lines.push_back("connect " + part);
        } else if (takes(call, "Lookup.GetSymbolInfoById(", ")", part) ||
                   takes(call, "Lookup.GetSymbolInfo(", ", ", part)) {
            lines.push_back("symbol " + part);
        }
    }
    return lines;
}

registry_key make_record(const CString& profile) {
    registry_key key;
    EXPECT_EQ(key.Create(HKEY_CURRENT_USER, root_host::path_of_records() + L"\\Profiles\\" + profile),
              ERROR_SUCCESS);
    return key;
}

void remember(const panel_state& panel) {
    const registry_key key = make_record(panel.name);
    EXPECT_EQ(key.SetString(L"Connected", panel.connected ? L"True" : L"False"), ERROR_SUCCESS);
    if (panel.symbol_id != 0) {
        EXPECT_EQ(key.SetDWORD(L"Symbol Id", static_cast<DWORD>(panel.symbol_id)), ERROR_SUCCESS);
    }
    if (!panel.symbol_name.empty()) {
        EXPECT_EQ(key.SetString(L"Symbol Name", panel.symbol_name), ERROR_SUCCESS);
    }
}

}  // namespace test
