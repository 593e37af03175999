#include "window/list_view.h"

#include <windows.h>

#include <uxtheme.h>

#include <algorithm>
#include <utility>

#include "com/text.h"

namespace host {

list_view::list_view(HWND parent, int id, const std::vector<list_column>& columns) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_SINGLESEL |
                        LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    m_window = CreateWindowExW(0, WC_LISTVIEWW, L"", style, 0, 0, 0, 0, parent,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                               nullptr);
    SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(dialog_font()), FALSE);
    ListView_SetExtendedListViewStyle(m_window, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    SetWindowTheme(m_window, L"Explorer", nullptr);
    for (std::size_t index = 0; index < columns.size(); ++index) {
        std::wstring title = to_wide(columns[index].title);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = columns[index].right ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.cx = scaled(columns[index].width);
        column.pszText = title.data();
        SendMessageW(m_window, LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
        m_other_widths += std::exchange(m_last_width, column.cx);
    }
}

void list_view::fit() {
    RECT client{};
    GetClientRect(m_window, &client);
    const int last = Header_GetItemCount(ListView_GetHeader(m_window)) - 1;
    ListView_SetColumnWidth(m_window, last,
                            std::max(m_last_width, static_cast<int>(client.right) - m_other_widths));
}

void list_view::insert(int index, int number) {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    item.lParam = number;
    SendMessageW(m_window, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    m_texts.emplace_back(number, std::vector<std::string>());
}

void list_view::set_row(int index, const std::vector<std::string>& texts) {
    const auto kept =
        std::ranges::find(m_texts, number(index), &std::pair<int, std::vector<std::string>>::first);
    if (kept == m_texts.end()) {
        return;
    }
    kept->second.resize(texts.size());
    for (std::size_t column = 0; column < texts.size(); ++column) {
        if (kept->second[column] == texts[column]) {
            continue;
        }
        kept->second[column] = texts[column];
        std::wstring text = to_wide(texts[column]);
        LVITEMW item{};
        item.iSubItem = static_cast<int>(column);
        item.pszText = text.data();
        SendMessageW(m_window, LVM_SETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
}

int list_view::number(int index) const {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    const bool found = SendMessageW(m_window, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != FALSE;
    return found ? static_cast<int>(item.lParam) : 0;
}

int list_view::row_of(int number) const {
    LVFINDINFOW wanted{};
    wanted.flags = LVFI_PARAM;
    wanted.lParam = number;
    return static_cast<int>(
        SendMessageW(m_window, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&wanted)));
}

int list_view::selected() const {
    const int index = ListView_GetNextItem(m_window, -1, LVNI_SELECTED);
    return index < 0 ? 0 : number(index);
}

}  // namespace host
