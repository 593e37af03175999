#include "window/profile_editor_dialog.h"

#include <windows.h>

#include <commctrl.h>

#include <array>

#include "com/text.h"
#include "window/list_view.h"
#include "window/resource.h"

namespace host {
namespace {

const wchar_t* state_text(ETM_ConnectionChanged state) {
    return state == eTM_CC_Connected    ? L"Connected"
           : state == eTM_CC_Connecting ? L"Connecting"
                                        : L"Disconnected";
}

void set_cell(HWND list, int row, int column, std::wstring text) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void fill_list(HWND list, const profiles& all) {
    ListView_DeleteAllItems(list);
    int row = 0;
    for (const ref<profile>& one : all.items()) {
        LVITEMW item{};
        item.iItem = row;
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        set_cell(list, row, 0, to_wide(one->shared().name));
        set_cell(list, row, 1, to_wide(one->shared().plugin));
        set_cell(list, row, 2, state_text(one->state()));
        ++row;
    }
}

void init(HWND dialog, const profiles& all) {
    const HWND list = GetDlgItem(dialog, IDC_PROFILES);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    const std::array<std::pair<const wchar_t*, int>, 3> columns{
        {{L"Name", 140}, {L"Broker", 170}, {L"State", 100}}};
    for (std::size_t index = 0; index < columns.size(); ++index) {
        std::wstring title = columns[index].first;
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = scaled(columns[index].second);
        column.pszText = title.data();
        SendMessageW(list, LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
    }
    for (const std::string& name : plugins()) {
        SendDlgItemMessageW(dialog, IDC_PLUGIN, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(to_wide(name).c_str()));
    }
    SendDlgItemMessageW(dialog, IDC_PLUGIN, CB_SETCURSEL, 0, 0);
    fill_list(list, all);
}

void add(HWND dialog, profiles& all) {
    std::array<wchar_t, 64> name{};
    GetDlgItemTextW(dialog, IDC_PROFILE_NAME, name.data(), static_cast<int>(name.size()));
    const auto chosen = static_cast<std::size_t>(SendDlgItemMessageW(dialog, IDC_PLUGIN, CB_GETCURSEL, 0, 0));
    _bstr_t plugin(to_wide(plugins().at(chosen)).c_str());
    all.Add(plugin.GetBSTR(), _bstr_t(name.data()).GetBSTR());
    SetDlgItemTextW(dialog, IDC_PROFILE_NAME, L"");
}

void remove(HWND dialog, profiles& all) {
    const int row = ListView_GetNextItem(GetDlgItem(dialog, IDC_PROFILES), -1, LVNI_SELECTED);
    if (row >= 0) {
        const std::string outer_id = all.items().at(static_cast<std::size_t>(row))->shared().outer_id;
        all.remove(outer_id);
    }
}

void on_command(HWND dialog, int id, profiles& all) {
    switch (id) {
        case IDCANCEL:
            EndDialog(dialog, id);
            return;
        case IDC_ADD:
            add(dialog, all);
            break;
        case IDC_REMOVE:
            remove(dialog, all);
            break;
        default:
            return;
    }
    fill_list(GetDlgItem(dialog, IDC_PROFILES), all);
}

INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    try {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(dialog, DWLP_USER, lparam);
            init(dialog, *reinterpret_cast<profiles*>(lparam));
            return TRUE;
        }
        auto* all = reinterpret_cast<profiles*>(GetWindowLongPtrW(dialog, DWLP_USER));
        if (message == WM_COMMAND && all != nullptr && HIWORD(wparam) == BN_CLICKED) {
            on_command(dialog, LOWORD(wparam), *all);
            return TRUE;
        }
    } catch (const std::exception& error) {
        // The dialog stays open; nothing was half done that the list would not show.
        OutputDebugStringA(error.what());
    }
    return FALSE;
}

}  // namespace

void show_profile_editor(HWND owner, profiles& all) {
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_PROFILES), owner, &procedure,
                    reinterpret_cast<LPARAM>(&all));
}

}  // namespace host
