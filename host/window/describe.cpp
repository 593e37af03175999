#include "window/describe.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "com/text.h"

namespace host {
namespace {

using nlohmann::json;

json rect_of(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

json client_rect_of(HWND window, RECT rect) {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect_of(rect);
}

std::string text_of(HWND window) {
    const LRESULT length = SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
    std::wstring text(static_cast<std::size_t>(length) + 1, 0);
    const LRESULT copied =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return to_utf8(text);
}

void add_combo(HWND window, json& out) {
    out["items"] = json::array();
    const LRESULT count = SendMessageW(window, CB_GETCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index) {
        const LRESULT length = SendMessageW(window, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
        std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, 0);
        SendMessageW(window, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        out["items"].push_back(to_utf8(text));
    }
    out["selected"] = SendMessageW(window, CB_GETCURSEL, 0, 0);
    out["dropped"] = SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void add_tabs(HWND window, json& out) {
    out["items"] = json::array();
    const int count = TabCtrl_GetItemCount(window);
    for (int index = 0; index < count; ++index) {
        std::array<wchar_t, 256> text{};
        TCITEMW item{};
        item.mask = TCIF_TEXT | TCIF_IMAGE;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(window, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        RECT rect{};
        TabCtrl_GetItemRect(window, index, &rect);
        out["items"].push_back(
            {{"text", to_utf8(text.data())}, {"image", item.iImage}, {"rect", client_rect_of(window, rect)}});
    }
    out["selected"] = TabCtrl_GetCurSel(window);
}

std::string cell_of(HWND window, int row, int column) {
    std::array<wchar_t, 512> text{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(window, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return to_utf8(text.data());
}

void add_rows(HWND window, json& out) {
    out["rows"] = json::array();
    const int columns = Header_GetItemCount(ListView_GetHeader(window));
    // Of a list that keeps no texts of its own only what is on view: it may be long.
    const bool virtual_list = (GetWindowLongW(window, GWL_STYLE) & LVS_OWNERDATA) != 0;
    const int count = ListView_GetItemCount(window);
    const int first = virtual_list ? ListView_GetTopIndex(window) : 0;
    const int last = virtual_list ? std::min(first + ListView_GetCountPerPage(window), count) : count;
    out["count"] = count;
    out["first"] = first;
    for (int row = first; row < last; ++row) {
        json texts = json::array();
        for (int column = 0; column < columns; ++column) {
            texts.push_back(cell_of(window, row, column));
        }
        RECT rect{};
        ListView_GetItemRect(window, row, &rect, LVIR_BOUNDS);
        out["rows"].push_back({{"texts", texts}, {"rect", client_rect_of(window, rect)}});
    }
    out["selected"] = ListView_GetNextItem(window, -1, LVNI_SELECTED);
}

void add_menu(HWND window, json& out) {
    out["items"] = json::array();
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0));
    const int count = GetMenuItemCount(menu);
    for (int index = 0; index < count; ++index) {
        const auto position = static_cast<UINT>(index);
        std::array<wchar_t, 256> text{};
        GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
        RECT rect{};
        GetMenuItemRect(nullptr, menu, position, &rect);
        const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
        out["items"].push_back({{"text", to_utf8(text.data())},
                                {"rect", rect_of(rect)},
                                {"enabled", (state & (MF_GRAYED | MF_DISABLED)) == 0}});
    }
}

// The menu bar of a window, if it has one.
void add_menu_bar(HWND window, json& out) {
    const HMENU menu = GetMenu(window);
    if (menu == nullptr) {
        return;
    }
    out["menus"] = json::array();
    const int count = GetMenuItemCount(menu);
    for (int index = 0; index < count; ++index) {
        const auto position = static_cast<UINT>(index);
        const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
        std::array<wchar_t, 64> text{};
        GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
        out["menus"].push_back(
            {{"text", to_utf8(text.data())}, {"enabled", (state & (MF_GRAYED | MF_DISABLED)) == 0}});
    }
}

std::string day_text(const SYSTEMTIME& day) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", day.wYear, day.wMonth, day.wDay);
    return text.data();
}

// Where the days of a calendar can be clicked, those of the months before and after too: a point within each.
void add_days(HWND window, json& out) {
    constexpr LONG step = 4;
    out["days"] = json::object();
    RECT client{};
    GetClientRect(window, &client);
    for (LONG y = 0; y < client.bottom; y += step) {
        for (LONG x = 0; x < client.right; x += step) {
            MCHITTESTINFO hit{};
            hit.cbSize = sizeof(hit);
            hit.pt = {x, y};
            SendMessageW(window, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if (hit.uHit == MCHT_CALENDARDATE || hit.uHit == MCHT_CALENDARDATEPREV ||
                hit.uHit == MCHT_CALENDARDATENEXT) {
                out["days"][day_text(hit.st)] = client_rect_of(window, {x, y, x + 1, y + 1});
            }
        }
    }
}

void add_items(HWND window, const std::wstring& kind, json& out) {
    if (kind == WC_COMBOBOXW) {
        add_combo(window, out);
    } else if (kind == WC_TABCONTROLW) {
        add_tabs(window, out);
    } else if (kind == WC_LISTVIEWW) {
        add_rows(window, out);
    } else if (kind == MONTHCAL_CLASSW && IsWindowVisible(window) != FALSE) {
        add_days(window, out);
    } else if (kind == L"#32768") {
        add_menu(window, out);
    }
}

std::wstring class_of(HWND window) {
    std::array<wchar_t, 128> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

json number_of(HWND window) {
    return reinterpret_cast<LONG_PTR>(window);
}

void add_window(HWND window, HWND parent, json& all) {
    const std::wstring kind = class_of(window);
    RECT rect{};
    GetWindowRect(window, &rect);
    json out{{"handle", number_of(window)},
             {"parent", number_of(parent)},
             {"class", to_utf8(kind)},
             {"id", parent == nullptr ? 0 : GetDlgCtrlID(window)},
             {"text", text_of(window)},
             {"rect", rect_of(rect)},
             {"visible", IsWindowVisible(window) != FALSE},
             {"enabled", IsWindowEnabled(window) != FALSE},
             {"focus", GetFocus() == window}};
    add_items(window, kind, out);
    if (parent == nullptr) {
        add_menu_bar(window, out);
    }
    all.push_back(std::move(out));
}

BOOL CALLBACK add_child(HWND window, LPARAM all) {
    add_window(window, GetAncestor(window, GA_PARENT), *reinterpret_cast<json*>(all));
    return TRUE;
}

BOOL CALLBACK add_top(HWND window, LPARAM all) {
    add_window(window, nullptr, *reinterpret_cast<json*>(all));
    EnumChildWindows(window, &add_child, all);
    return TRUE;
}

}  // namespace

std::string describe_windows() {
    static int count = 0;
    json windows = json::array();
    EnumThreadWindows(GetCurrentThreadId(), &add_top, reinterpret_cast<LPARAM>(&windows));
    return json{{"count", ++count}, {"windows", std::move(windows)}}.dump(1, ' ', false,
                                                                          json::error_handler_t::replace);
}

void write_description(const std::string& path) {
    const std::filesystem::path target(std::u8string(path.begin(), path.end()));
    std::filesystem::path fresh = target;
    fresh += ".new";
    std::ofstream(fresh, std::ios::binary | std::ios::trunc) << describe_windows();
    MoveFileExW(fresh.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING);
}

}  // namespace host
