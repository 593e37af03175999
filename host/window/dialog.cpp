#include "window/dialog.h"

#include <windows.h>

#include <uxtheme.h>

#include <exception>

#include "com/text.h"
#include "window/list_view.h"

namespace host {

INT_PTR dialog::run(HWND owner, int template_id) {
    return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(template_id), owner,
                           &dialog::procedure, reinterpret_cast<LPARAM>(this));
}

INT_PTR CALLBACK dialog::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lparam);
        reinterpret_cast<dialog*>(lparam)->m_window = window;
    }
    auto* const self = reinterpret_cast<dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr) {
        return FALSE;
    }
    try {
        return self->handle(message, wparam, lparam);
    } catch (const std::exception& error) {
        // No exception may leave a dialog procedure. The dialog stays open.
        MessageBoxW(window, to_wide(error.what()).c_str(), L"OrderDeck Host", MB_ICONERROR);
        return TRUE;
    }
}

INT_PTR dialog::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        on_init();
        return TRUE;
    }
    if (message == WM_COMMAND && HIWORD(wparam) == BN_CLICKED) {
        on_button(LOWORD(wparam));
        return TRUE;
    }
    if (message == WM_COMMAND && HIWORD(wparam) == EN_CHANGE) {
        on_change(LOWORD(wparam));
        return TRUE;
    }
    if (message == WM_NOTIFY) {
        const auto& notice = *reinterpret_cast<const NMHDR*>(lparam);
        if (notice.code == LVN_ITEMCHANGED && !m_filling) {
            on_select(static_cast<int>(notice.idFrom));
        }
    }
    return FALSE;
}

void dialog::on_button(int id) {
    if (id == IDOK || id == IDCANCEL) {
        end(id);
    }
}

std::string dialog::text(int id) const {
    const HWND control = item(id);
    std::wstring value(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, 0);
    value.resize(
        static_cast<std::size_t>(GetWindowTextW(control, value.data(), static_cast<int>(value.size()))));
    return to_utf8(value);
}

void dialog::set_text(int id, const std::string& value) {
    SetDlgItemTextW(m_window, id, to_wide(value).c_str());
}

void dialog::complain(const std::string& why, int id) {
    MessageBoxW(m_window, to_wide(why).c_str(), L"OrderDeck Host", MB_ICONWARNING);
    SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item(id)), TRUE);
}

void dialog::add_columns(int id, const std::vector<std::pair<const char*, int>>& columns) {
    const HWND list = item(id);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    SetWindowTheme(list, L"Explorer", nullptr);
    for (std::size_t index = 0; index < columns.size(); ++index) {
        std::wstring title = to_wide(columns[index].first);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = scaled(columns[index].second);
        column.pszText = title.data();
        SendMessageW(list, LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
    }
}

void dialog::set_rows(int id, const std::vector<std::vector<std::string>>& rows) {
    const HWND list = item(id);
    m_filling = true;
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    ListView_DeleteAllItems(list);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        LVITEMW entry{};
        entry.iItem = static_cast<int>(row);
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&entry));
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            std::wstring cell = to_wide(rows[row][column]);
            entry.iSubItem = static_cast<int>(column);
            entry.pszText = cell.data();
            SendMessageW(list, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&entry));
        }
    }
    // The last column takes what room the rows leave.
    ListView_SetColumnWidth(list, Header_GetItemCount(ListView_GetHeader(list)) - 1,
                            LVSCW_AUTOSIZE_USEHEADER);
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    m_filling = false;
    InvalidateRect(list, nullptr, TRUE);
}

int dialog::selected_row(int id) const {
    return ListView_GetNextItem(item(id), -1, LVNI_SELECTED);
}

void dialog::select_row(int id, int row) {
    ListView_SetItemState(item(id), row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(item(id), row, FALSE);
}

void dialog::add_choices(int id, const std::vector<std::string>& choices, int selected) {
    for (const std::string& one : choices) {
        SendMessageW(item(id), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(to_wide(one).c_str()));
    }
    SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

}  // namespace host
