#include "propds2/property_sheet.h"

#include <objbase.h>

#include "propds2/resource.h"
#include "propds2/sheet_layout.h"
#include "window/dialog_look.h"

// The linker's own name for the start of the image.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace host {
namespace {

constexpr LONG modal_sheet = 0x80;
constexpr LONG chosen = 0;
constexpr LONG nothing_chosen = 1;
// The least that a page gets, at 96 dots per inch.
constexpr SIZE smallest_page{420, 200};

RECT rect_of(const box& one) {
    return {one.left, one.top, one.right, one.bottom};
}

SIZE size_of(const RECT& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

HRESULT property_sheet::Create(LONG lFlags, BSTR sCaption, LONG lObjects, IUnknown** ppObjects, LONG lPages,
                               const GUID* pPageIds) noexcept {
    return guarded([&] {
        if (lFlags != modal_sheet || lPages != 1 || pPageIds == nullptr || lObjects < 0) {
            return E_INVALIDARG;
        }
        m_page.reset();
        IPropertyPage* page = nullptr;
        _com_util::CheckError(CoCreateInstance(*pPageIds, nullptr, CLSCTX_INPROC_SERVER,
                                               __uuidof(IPropertyPage), reinterpret_cast<void**>(&page)));
        const ref<IPropertyPage> made(page, false);
        _com_util::CheckError(made->SetObjects(static_cast<ULONG>(lObjects), ppObjects));
        m_caption.assign(sCaption, SysStringLen(sCaption));
        m_page = made;
        return S_OK;
    });
}

HRESULT property_sheet::ShowModal(ULONGLONG hOwner, LONG* pModalResult) noexcept {
    return guarded([&] {
        if (pModalResult == nullptr) {
            return E_POINTER;
        }
        if (m_page == nullptr || m_window != nullptr) {
            return E_UNEXPECTED;
        }
        const ref<property_sheet> alive(this);
        m_failure = S_OK;
        const INT_PTR result =
            DialogBoxParamW(reinterpret_cast<HINSTANCE>(&__ImageBase), MAKEINTRESOURCEW(IDD_SHEET),
                            reinterpret_cast<HWND>(static_cast<ULONG_PTR>(hOwner)), &procedure,
                            reinterpret_cast<LPARAM>(this));
        m_window = nullptr;
        m_page->Deactivate();
        m_page->SetPageSite(nullptr);
        if (result < 0) {
            return FAILED(m_failure) ? m_failure : E_FAIL;
        }
        *pModalResult = result == IDOK ? chosen : nothing_chosen;
        return S_OK;
    });
}

INT_PTR CALLBACK property_sheet::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lparam);
        auto* sheet = reinterpret_cast<property_sheet*>(lparam);
        sheet->m_window = window;
        sheet->m_failure = guarded([&] {
            sheet->set_up();
            return S_OK;
        });
        if (FAILED(sheet->m_failure)) {
            EndDialog(window, -1);
        }
        // The page has the focus.
        return FALSE;
    }
    auto* sheet = reinterpret_cast<property_sheet*>(GetWindowLongPtrW(window, DWLP_USER));
    return sheet != nullptr && sheet->handle_message(message, wparam, lparam) ? TRUE : FALSE;
}

void property_sheet::set_up() {
    SetWindowTextW(m_window, m_caption.c_str());
    use_dialog_font(m_window);
    PROPPAGEINFO page{};
    page.cb = sizeof(page);
    _com_util::CheckError(m_page->GetPageInfo(&page));
    CoTaskMemFree(page.pszTitle);
    CoTaskMemFree(page.pszDocString);
    CoTaskMemFree(page.pszHelpFile);
    const auto size_for = [&](SIZE wanted) {
        // What the buttons and the frame add to a page.
        const box inner = lay_out_sheet(0x4000, 0x4000, scaled(1000)).page;
        RECT rect{0, 0, wanted.cx + 0x4000 - inner.width(), wanted.cy + 0x4000 - inner.height()};
        AdjustWindowRectEx(&rect, static_cast<DWORD>(GetWindowLongW(m_window, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongW(m_window, GWL_EXSTYLE)));
        return size_of(rect);
    };
    m_smallest = size_for({scaled(smallest_page.cx), scaled(smallest_page.cy)});
    const SIZE size = size_for(page.size);
    SetWindowPos(m_window, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
    centre();
    m_page->SetPageSite(this);
    const RECT place = page_place();
    _com_util::CheckError(m_page->Activate(m_window, &place, TRUE));
    m_page->Show(SW_SHOW);
    arrange();
    show_status();
    // The page comes before the buttons, on the screen and for the Tab key.
    const HWND first = GetWindow(m_window, GW_CHILD);
    for (HWND child = first; child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        if (id != IDOK && id != IDCANCEL) {
            SetWindowPos(child, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
            SetFocus(GetNextDlgTabItem(m_window, nullptr, FALSE));
            break;
        }
    }
}

// In the middle of the owner, and whole on its monitor.
void property_sheet::centre() {
    const HWND owner = GetWindow(m_window, GW_OWNER);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : m_window, MONITOR_DEFAULTTONEAREST),
                    &monitor);
    RECT around = monitor.rcWork;
    if (owner != nullptr && IsIconic(owner) == FALSE) {
        GetWindowRect(owner, &around);
    }
    RECT own{};
    GetWindowRect(m_window, &own);
    const SIZE size = size_of(own);
    const auto fit = [](LONG wanted, LONG low, LONG high) {
        return wanted > high ? high : wanted < low ? low : wanted;
    };
    const LONG left =
        fit((around.left + around.right - size.cx) / 2, monitor.rcWork.left, monitor.rcWork.right - size.cx);
    const LONG top =
        fit((around.top + around.bottom - size.cy) / 2, monitor.rcWork.top, monitor.rcWork.bottom - size.cy);
    SetWindowPos(m_window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

RECT property_sheet::page_place() const {
    RECT client{};
    GetClientRect(m_window, &client);
    return rect_of(lay_out_sheet(client.right, client.bottom, scaled(1000)).page);
}

void property_sheet::arrange() {
    RECT client{};
    GetClientRect(m_window, &client);
    const sheet_places places = lay_out_sheet(client.right, client.bottom, scaled(1000));
    const auto put = [&](int id, const box& where) {
        MoveWindow(GetDlgItem(m_window, id), where.left, where.top, where.width(), where.height(), TRUE);
    };
    put(IDOK, places.ok);
    put(IDCANCEL, places.cancel);
    const RECT page = rect_of(places.page);
    m_page->Move(&page);
}

void property_sheet::show_status() {
    EnableWindow(GetDlgItem(m_window, IDOK), m_page->IsPageDirty() == S_OK);
}

void property_sheet::on_ok() {
    if (m_page->IsPageDirty() == S_OK && m_page->Apply() == S_OK) {
        EndDialog(m_window, IDOK);
    }
}

bool property_sheet::handle_message(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            arrange();
            return true;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {m_smallest.cx, m_smallest.cy};
            return true;
        case WM_COMMAND:
            if (LOWORD(wparam) == IDOK) {
                on_ok();
                return true;
            }
            if (LOWORD(wparam) == IDCANCEL) {
                EndDialog(m_window, IDCANCEL);
                return true;
            }
            return false;
        default:
            return false;
    }
}

HRESULT property_sheet::OnStatusChange(DWORD) noexcept {
    if (m_window != nullptr) {
        show_status();
    }
    return S_OK;
}

HRESULT property_sheet::GetLocaleID(LCID* pLocaleID) noexcept {
    if (pLocaleID == nullptr) {
        return E_POINTER;
    }
    *pLocaleID = GetThreadLocale();
    return S_OK;
}

HRESULT property_sheet::GetPageContainer(IUnknown** ppUnk) noexcept {
    if (ppUnk == nullptr) {
        return E_POINTER;
    }
    *ppUnk = nullptr;
    return E_NOTIMPL;
}

}  // namespace host
