// How the host uses the bar as a whole: its menu, its closing and its return.
#include <array>

#include "platform/message_pump.h"
#include "platform/registry.h"
#include "tests/monkey/host_side.h"

namespace monkey {

namespace {

using platform::registry_key;

void pump() {
    MSG message;
    while (platform::peek_message(message)) {
        platform::dispatch_message(message);
    }
}

std::vector<com_ptr<IOD_ProfileCmd>> commands_of(SAFEARRAY* items) {
    VARIANT* elements = nullptr;
    LONG last = -1;
    SafeArrayGetUBound(items, 1, &last);
    SafeArrayAccessData(items, reinterpret_cast<void**>(&elements));
    std::vector<com_ptr<IOD_ProfileCmd>> commands;
    for (LONG i = 0; i <= last; ++i) {
        commands.push_back(platform::query<IOD_ProfileCmd>(com_ptr<IUnknown>(V_UNKNOWN(elements + i))));
    }
    SafeArrayUnaccessData(items);
    SafeArrayDestroy(items);
    return commands;
}

std::string replaced(std::string text, const std::string& what, const char* with) {
    const std::size_t at = text.find(what);
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

std::string number_of(HWND window) {
    return std::to_string(reinterpret_cast<ULONG_PTR>(window));
}

void plant_record(const CString& name, const action& done) {
    registry_key key;
    key.Create(HKEY_CURRENT_USER, remembered_path() + L"\\Profiles\\" + name);
    key.SetString(L"Connected", done.who % 3 != 0 ? L"tRUE" : L"yes");
    key.SetDWORD(L"Symbol Id", static_cast<DWORD>(planted_id(done.which / 168)));
    key.SetString(L"Symbol Name", pick(symbol_texts(), done.which / 168));
}

}  // namespace

// Windows go by what they are.
std::string host_side::named(std::string call) const {
    if (call.starts_with("OnCommand.")) {
        return call == "OnCommand.Execute(4, empty)"                      ? "lock"
               : call == "OnCommand.Execute(5, " + number_of(m_bar) + ")" ? "unlock"
                                                                          : call;
    }
    if (call.starts_with("Bar.Serialize(") || call.starts_with("Bar.Deserialize(")) {
        return replaced(call, test::quoted(remembered_path()), "key");
    }
    if (call.starts_with("ManualTrading(") || call.starts_with("Bar.")) {
        return call;
    }
    return replaced(replaced(call, "(" + number_of(m_frame), "(frame"), "(" + number_of(m_bar), "(bar");
}

void host_side::interrupt() {
    if (m_interrupt) {
        const action event = *m_interrupt;
        m_interrupt.reset();
        perform(event);
    }
}

void host_side::be_unruly(std::function<void(const action&)> done) {
    m_unruly = std::move(done);
    listen_to_calls();
}

void host_side::listen_to_calls() {
    if (m_unruly) {
        for (const char* const operation : meddled_calls()) {
            host.on_call(operation, [this, operation] { meddle(operation); });
        }
    }
}

// Once, in the call that was told.
void host_side::meddle(const char* operation) {
    if (m_meddling && std::string_view(meddled_call(*m_meddling)) == operation) {
        const action event = meddling(*m_meddling);
        m_meddling.reset();
        m_unruly(event);
    }
}

HRESULT host_side::host_menu(int which) {
    SAFEARRAY* items = nullptr;
    const HRESULT hr = root->get_Commands(&items);
    if (FAILED(hr)) {
        return hr;
    }
    const std::vector<com_ptr<IOD_ProfileCmd>> commands = commands_of(items);
    std::string menu = "menu:";
    for (const auto& command : commands) {
        _bstr_t name;
        command->get_Name(name.GetAddress());
        const CString text = platform::text_of(name);
        menu += " " + (text.empty() ? "-" : test::narrow(text));
    }
    host.note(menu);
    return pick(commands, which)->Execute();
}

// Another bar of the user writes.
void host_side::plant(const action& done) const {
    const CString name = pick(remembered_names(), done.who);
    registry_key key;
    switch (done.which / 42 % 4) {
        case 1:
            return plant_record(name, done);
        case 2:
            key.Create(HKEY_CURRENT_USER, remembered_path());
            key.SetString(L"Current Tab Name", name);
            return;
        case 3:
            registry_key::DeleteTree(HKEY_CURRENT_USER, remembered_path() + L"\\Profiles");
            return;
        default:
            return;
    }
}

HRESULT host_side::restart(const action& done, HWND parent) {
    m_center->master_counter = done.which % 7 == 3 ? 2 : 1;
    if (done.which % 5 != 0) {
        const HRESULT hr = root->OnClose();
        if (hr != S_OK) {
            return hr;
        }
    }
    root->Destroy();
    pump();
    plant(done);
    start(parent);
    made();
    pump();
    return S_OK;
}

}  // namespace monkey
