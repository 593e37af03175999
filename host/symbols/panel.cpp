#include "symbols/panel.h"

#include <uxtheme.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "com/text.h"
#include "symbols/module.h"
#include "symbols/panel_layout.h"
#include "symbols/resource.h"
#include "window/dialog_look.h"

namespace host {
namespace {

constexpr UINT_PTR edit_subclass = 1;
constexpr const wchar_t* all_feeds = L"全部";

struct column {
    const wchar_t* title;
    // At 96 dots per inch; 0 takes what the others leave.
    int width;
};
constexpr std::array<column, 5> columns{
    {{L"名稱", 132}, {L"說明", 0}, {L"交易所", 84}, {L"類別", 84}, {L"資料來源", 148}}};

constexpr COLORREF shade = RGB(245, 248, 252);
constexpr COLORREF quiet = RGB(96, 104, 116);

std::string window_text(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, 0);
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return to_utf8(text);
}

// "2,039"
std::wstring grouped(std::size_t number) {
    std::wstring text = std::to_wstring(number);
    for (std::size_t at = text.size(); at > 3; at -= 3) {
        text.insert(at - 3, 1, L',');
    }
    return text;
}

}  // namespace

symbol_panel::symbol_panel(HWND parent, const RECT& place, const symbol_store& store,
                           const symbol_filter::takes& may_show, const symbol_panel_start& start,
                           std::function<void()> on_change)
    : m_store(store), m_filter(store, may_show), m_on_change(std::move(on_change)) {
    m_window = CreateDialogParamW(symbols_module(), MAKEINTRESOURCEW(IDD_SYMBOLS), parent, &procedure,
                                  reinterpret_cast<LPARAM>(this));
    if (m_window == nullptr) {
        throw std::runtime_error("no window for the symbol page");
    }
    set_up(start);
    move(place);
}

symbol_panel::~symbol_panel() {
    RemoveWindowSubclass(item(IDC_SYMBOL_TEXT), &on_edit_message, edit_subclass);
    SetWindowLongPtrW(m_window, DWLP_USER, 0);
    DestroyWindow(m_window);
}

void symbol_panel::set_up(const symbol_panel_start& start) {
    use_dialog_font(m_window);
    SetWindowSubclass(item(IDC_SYMBOL_TEXT), &on_edit_message, edit_subclass,
                      reinterpret_cast<DWORD_PTR>(this));
    Edit_SetCueBannerText(item(IDC_SYMBOL_TEXT), L"輸入代號、名稱或交易所");
    make_columns();
    fill_feeds(start.feed);
    SetDlgItemTextW(m_window, IDC_SYMBOL_TEXT, to_wide(start.text).c_str());
    SendDlgItemMessageW(m_window, IDC_SYMBOL_TEXT, EM_SETSEL, 0, -1);
    // From here on the panel hears of its controls.
    SetWindowLongPtrW(m_window, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
    search();
    choose(m_store.find(start.present));
}

void symbol_panel::make_columns() {
    const HWND list = item(IDC_SYMBOL_LIST);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    SetWindowTheme(list, L"Explorer", nullptr);
    for (std::size_t index = 0; index < columns.size(); ++index) {
        std::wstring title = columns[index].title;
        LVCOLUMNW one{};
        one.mask = LVCF_TEXT | LVCF_WIDTH;
        one.cx = scaled(columns[index].width);
        one.pszText = title.data();
        SendMessageW(list, LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&one));
    }
}

void symbol_panel::fill_feeds(const std::string& feed) {
    const HWND combo = item(IDC_SYMBOL_FEED);
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(all_feeds));
    for (const std::string& name : m_store.feeds()) {
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(to_wide(name).c_str()));
    }
    // The number of a feed is its line behind the first; one that is not known shows all.
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(m_store.feed_number(feed)), 0);
}

std::string symbol_panel::feed() const {
    const LRESULT line = SendDlgItemMessageW(m_window, IDC_SYMBOL_FEED, CB_GETCURSEL, 0, 0);
    return std::string(m_store.feed_name(static_cast<int>(line)));
}

void symbol_panel::move(const RECT& place) {
    MoveWindow(m_window, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
    arrange();
}

void symbol_panel::arrange() {
    RECT client{};
    GetClientRect(m_window, &client);
    RECT combo{};
    GetWindowRect(item(IDC_SYMBOL_FEED), &combo);
    const symbol_panel_places places =
        lay_out_symbols(client.right, client.bottom, combo.bottom - combo.top, scaled(1000));
    const auto put = [&](int id, const box& where) {
        MoveWindow(item(id), where.left, where.top, where.width(), where.height(), TRUE);
    };
    put(IDC_SYMBOL_TEXT_LABEL, places.text_label);
    put(IDC_SYMBOL_TEXT, places.text);
    put(IDC_SYMBOL_FEED_LABEL, places.feed_label);
    put(IDC_SYMBOL_LIST, places.list);
    put(IDC_SYMBOL_COUNT, places.count);
    // The height of a combo box is that of its list.
    MoveWindow(item(IDC_SYMBOL_FEED), places.feed.left, places.feed.top, places.feed.width(), scaled(240),
               TRUE);
    int rest = places.list.width() - GetSystemMetrics(SM_CXVSCROLL) - scaled(4);
    for (const column& one : columns) {
        rest -= scaled(one.width);
    }
    ListView_SetColumnWidth(item(IDC_SYMBOL_LIST), 1, std::max(rest, scaled(120)));
    const int selected = ListView_GetNextItem(item(IDC_SYMBOL_LIST), -1, LVNI_SELECTED);
    if (selected >= 0) {
        ListView_EnsureVisible(item(IDC_SYMBOL_LIST), selected, FALSE);
    }
}

void symbol_panel::search() {
    m_rows = m_filter.match(window_text(item(IDC_SYMBOL_TEXT)), feed());
    if (m_sorted_by >= 0) {
        symbol_filter::sort(m_rows, static_cast<symbol_column>(m_sorted_by), m_descending);
    }
    const HWND list = item(IDC_SYMBOL_LIST);
    SendMessageW(list, LVM_SETITEMCOUNT, m_rows.size(), 0);
    InvalidateRect(list, nullptr, TRUE);
    show_count();
    choose(nullptr);
}

void symbol_panel::show_count() const {
    const std::wstring text =
        m_rows.empty() ? std::wstring(L"沒有符合的商品") : L"共 " + grouped(m_rows.size()) + L" 項商品";
    SetDlgItemTextW(m_window, IDC_SYMBOL_COUNT, text.c_str());
}

void symbol_panel::choose(const instrument* wanted) {
    const HWND list = item(IDC_SYMBOL_LIST);
    const auto found = std::ranges::find(m_rows, wanted);
    const int row = found == m_rows.end() ? 0 : static_cast<int>(found - m_rows.begin());
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (!m_rows.empty()) {
        ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ListView_EnsureVisible(list, row, FALSE);
    }
    m_on_change();
}

const instrument* symbol_panel::chosen() const {
    const int row = ListView_GetNextItem(item(IDC_SYMBOL_LIST), -1, LVNI_SELECTED);
    const auto index = static_cast<std::size_t>(row);
    return row < 0 || index >= m_rows.size() ? nullptr : m_rows[index];
}

void symbol_panel::sort_by(int column) {
    const instrument* kept = chosen();
    m_descending = column == m_sorted_by && !m_descending;
    m_sorted_by = column;
    symbol_filter::sort(m_rows, static_cast<symbol_column>(column), m_descending);
    InvalidateRect(item(IDC_SYMBOL_LIST), nullptr, TRUE);
    show_sorting();
    choose(kept);
}

void symbol_panel::show_sorting() const {
    const HWND header = ListView_GetHeader(item(IDC_SYMBOL_LIST));
    for (int index = 0; index < static_cast<int>(columns.size()); ++index) {
        HDITEMW one{};
        one.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&one));
        one.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (index == m_sorted_by) {
            one.fmt |= m_descending ? HDF_SORTDOWN : HDF_SORTUP;
        }
        SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&one));
    }
}

INT_PTR CALLBACK symbol_panel::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* panel = reinterpret_cast<symbol_panel*>(GetWindowLongPtrW(window, DWLP_USER));
    try {
        return panel != nullptr && panel->handle_message(message, wparam, lparam) ? TRUE : FALSE;
    } catch (const std::exception& error) {
        // The list stays as it was.
        OutputDebugStringA(error.what());
        return TRUE;
    }
}

bool symbol_panel::handle_message(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_COMMAND:
            if ((LOWORD(wparam) == IDC_SYMBOL_TEXT && HIWORD(wparam) == EN_CHANGE) ||
                (LOWORD(wparam) == IDC_SYMBOL_FEED && HIWORD(wparam) == CBN_SELCHANGE)) {
                search();
                return true;
            }
            return false;
        case WM_NOTIFY: {
            auto& notice = *reinterpret_cast<NMHDR*>(lparam);
            if (notice.idFrom != IDC_SYMBOL_LIST) {
                return false;
            }
            SetWindowLongPtrW(m_window, DWLP_MSGRESULT, on_list_notice(notice));
            return true;
        }
        default:
            return false;
    }
}

LRESULT symbol_panel::on_list_notice(NMHDR& notice) {
    switch (notice.code) {
        case LVN_GETDISPINFOW:
            give_cell(reinterpret_cast<NMLVDISPINFOW&>(notice));
            return 0;
        case LVN_ODFINDITEMW:
            return find_row(reinterpret_cast<NMLVFINDITEMW&>(notice));
        case LVN_COLUMNCLICK:
            sort_by(reinterpret_cast<NMLISTVIEW&>(notice).iSubItem);
            return 0;
        case LVN_ITEMCHANGED:
            m_on_change();
            return 0;
        case NM_DBLCLK:
            if (chosen() != nullptr) {
                PostMessageW(GetAncestor(m_window, GA_ROOT), WM_COMMAND, IDOK, 0);
            }
            return 0;
        case NM_CUSTOMDRAW:
            return draw(reinterpret_cast<NMLVCUSTOMDRAW&>(notice));
        default:
            return 0;
    }
}

void symbol_panel::give_cell(NMLVDISPINFOW& notice) const {
    const auto row = static_cast<std::size_t>(notice.item.iItem);
    if ((notice.item.mask & LVIF_TEXT) == 0 || row >= m_rows.size() || notice.item.cchTextMax < 1) {
        return;
    }
    const std::wstring text =
        to_wide(cell_text(*m_rows[row], static_cast<symbol_column>(notice.item.iSubItem)));
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(notice.item.cchTextMax) - 1);
    std::copy_n(text.begin(), length, notice.item.pszText);
    notice.item.pszText[length] = 0;
}

// Typing in the list goes to the next name that begins so.
LRESULT symbol_panel::find_row(const NMLVFINDITEMW& notice) const {
    if ((notice.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || m_rows.empty()) {
        return -1;
    }
    const std::string wanted = to_utf8(notice.lvfi.psz);
    const auto start = static_cast<std::size_t>(std::max(notice.iStart, 0));
    for (std::size_t step = 0; step < m_rows.size(); ++step) {
        const std::size_t row = (start + step) % m_rows.size();
        if (same_name(std::string_view(m_rows[row]->name).substr(0, wanted.size()), wanted)) {
            return static_cast<LRESULT>(row);
        }
    }
    return -1;
}

LRESULT symbol_panel::draw(NMLVCUSTOMDRAW& notice) const {
    switch (notice.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT:
            // The choice stands out while the search line has the focus too: Enter takes it.
            notice.nmcd.uItemState &= ~UINT{CDIS_SELECTED};
            return CDRF_NOTIFYSUBITEMDRAW;
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM: {
            const auto row = static_cast<int>(notice.nmcd.dwItemSpec);
            const bool chosen = ListView_GetItemState(item(IDC_SYMBOL_LIST), row, LVIS_SELECTED) != 0;
            notice.nmcd.uItemState &= ~UINT{CDIS_SELECTED};
            notice.clrTextBk = chosen         ? GetSysColor(COLOR_HIGHLIGHT)
                               : row % 2 == 0 ? GetSysColor(COLOR_WINDOW)
                                              : shade;
            notice.clrText = chosen                ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                             : notice.iSubItem < 2 ? GetSysColor(COLOR_WINDOWTEXT)
                                                   : quiet;
            return CDRF_DODEFAULT;
        }
        default:
            return CDRF_DODEFAULT;
    }
}

bool symbol_panel::moves_list(WPARAM key) const {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    return key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT ||
           (control && (key == VK_HOME || key == VK_END));
}

// The keys that move in the list do so from the search line too.
LRESULT CALLBACK symbol_panel::on_edit_message(HWND edit, UINT message, WPARAM wparam, LPARAM lparam,
                                               UINT_PTR, DWORD_PTR panel) {
    const auto& self = *reinterpret_cast<const symbol_panel*>(panel);
    if (message == WM_KEYDOWN && self.moves_list(wparam)) {
        return SendMessageW(self.item(IDC_SYMBOL_LIST), message, wparam, lparam);
    }
    return DefSubclassProc(edit, message, wparam, lparam);
}

}  // namespace host
