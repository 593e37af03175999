#include "window/bar.h"

#include "centre/symbol_record.h"
#include "com/array.h"
#include "com/text.h"

namespace host {
namespace {

// The bar's own message by which a host asks for the tabs.
constexpr UINT fill_message = WM_USER + 221;
constexpr WPARAM fill_now = 1;

// The order row and the tab strip above it, in dialog units.
constexpr int row_units = 34;
constexpr int strip_units = 14;

std::string take(BSTR text) {
    std::string copy = bstr_text(text);
    SysFreeString(text);
    return copy;
}

// False also when the operation failed.
bool flag(IOD_ProfileCmd& command, HRESULT (STDMETHODCALLTYPE IOD_ProfileCmd::*operation)(VARIANT_BOOL*)) {
    VARIANT_BOOL value = VARIANT_FALSE;
    return SUCCEEDED((command.*operation)(&value)) && value != VARIANT_FALSE;
}

bar_command read_command(IUnknown* item) {
    bar_command line;
    line.command = query<IOD_ProfileCmd>(item);
    if (line.command == nullptr) {
        return line;
    }
    BSTR name = nullptr;
    if (SUCCEEDED(line.command->get_Name(&name))) {
        line.name = take(name);
    }
    line.enabled = flag(*line.command, &IOD_ProfileCmd::get_Enabled);
    line.checked = flag(*line.command, &IOD_ProfileCmd::get_Checked);
    return line;
}

}  // namespace

HRESULT bar::create(ISWUnifyAccess* root, HWND parent, IUnknown* on_command) {
    const HRESULT hr = root->Create(parent, on_command, &m_window);
    if (FAILED(hr)) {
        m_window = nullptr;
        return hr;
    }
    m_root = root;
    m_profiles = query<IOD_BrokerProfiles>(root);
    m_driver = query<IOD_OrderDeckDriver>(root);
    return hr;
}

void bar::fill() {
    SendMessageW(m_window, fill_message, fill_now, 0);
}

int bar::height() const {
    RECT units{0, 0, 0, row_units + strip_units};
    MapDialogRect(m_window, &units);
    return units.bottom;
}

std::vector<bar_command> bar::commands() const {
    std::vector<bar_command> lines;
    SAFEARRAY* raw = nullptr;
    if (m_profiles == nullptr || FAILED(m_profiles->get_Commands(&raw))) {
        return lines;
    }
    const array_ptr items(raw);
    for (const ref<IUnknown>& item : read_objects(items.get())) {
        lines.push_back(read_command(item.get()));
    }
    return lines;
}

std::string bar::status_line() const {
    BSTR text = nullptr;
    const bool given = m_profiles != nullptr && SUCCEEDED(m_profiles->get_StatusLineString(&text));
    return given ? take(text) : std::string();
}

std::string bar::active_tab() const {
    BSTR tab = nullptr;
    const bool given = m_driver != nullptr && SUCCEEDED(m_driver->get_ActiveTab(&tab));
    return given ? take(tab) : std::string();
}

bool bar::choose(const instrument& one) {
    BSTR tab = nullptr;
    if (m_driver == nullptr || FAILED(m_driver->get_ActiveTab(&tab))) {
        return false;
    }
    OD_SSymbolInfo record{};
    fill_symbol(one, record);
    const HRESULT hr = m_driver->put_SymbolInfo(tab, &record);
    clear_symbol(record);
    SysFreeString(tab);
    return SUCCEEDED(hr);
}

bool bar::close() {
    return m_profiles == nullptr || m_profiles->OnClose() != S_FALSE;
}

void bar::destroy() {
    m_driver.reset();
    m_profiles.reset();
    if (m_root != nullptr) {
        m_root->Destroy();
        m_root.reset();
    }
    m_window = nullptr;
}

}  // namespace host
