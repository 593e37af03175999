#include "charting/orderdeck/src/window/OrderDeckWindow.h"

#include <boost/make_shared.hpp>

#include "charting/orderdeck/interface/make_bar_window.h"
#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/window/ProfileMenu.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/win32/frame/png_image.h"
#include "platform/win32/frame/resolution.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT bar_template = 201;
constexpr int tab_strip_item = 201;
constexpr int setup_button_item = 229;
constexpr UINT tab_images = 212;
constexpr int tab_image_size = 16;
// Sent by the host when it wants the tabs; 1 in wParam.
constexpr UINT fill_message = WM_USER + 221;

POINT cursor_position() {
    POINT at = {};
    BS_REQUIRE(::GetCursorPos(&at), E_FAIL);
    return at;
}

POINT to_client(HWND window, POINT at) {
    BS_REQUIRE(::ScreenToClient(window, &at), E_FAIL);
    return at;
}

}  // namespace

boost::shared_ptr<ITabCtrl> make_bar_window(HWND parent, IBarOwner& owner) {
    return boost::make_shared<COrderDeckWindow>(parent, owner);
}

COrderDeckWindow::COrderDeckWindow(HWND parent, IBarOwner& owner)
    : m_owner(owner), m_panel(std::make_unique<CProfileTabWindow>(this)) {
    Create(bar_template, parent);
    BS_REQUIRE(::IsWindow(m_hWnd), E_FAIL);
    m_thread_id = ::GetCurrentThreadId();
    m_async.Start();
}

COrderDeckWindow::~COrderDeckWindow() {
    m_async.Stop(true, true);
    DestroyWindow();
    _end_tabs();
    _destroy_images();
}

BOOL COrderDeckWindow::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                            DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    using frame::guarded;
    switch (uMsg) {
        case WM_INITDIALOG:
            return frame::take(guarded(BS_HERE, [&] { return OnInitDialog(); }), lResult);
        case WM_SIZE:
            return frame::take(guarded(BS_HERE, [&] { return OnSize(); }), lResult);
        case WM_MOUSEACTIVATE:
            return frame::take(guarded(BS_HERE, [&] { return OnMouseActivate(); }), lResult);
        case WM_COMMAND:
            if (wParam != MAKEWPARAM(setup_button_item, BN_CLICKED)) {
                return FALSE;
            }
            return frame::take(guarded(BS_HERE, [&] { return OnBnClicked(); }), lResult);
        case WM_NOTIFY:
            return frame::take(_dispatch_notify(*reinterpret_cast<const NMHDR*>(lParam)), lResult);
        case fill_message:
            return frame::take(guarded(BS_HERE, [&] { return OnFill(wParam); }), lResult);
        default:
            return FALSE;
    }
}

frame::answer COrderDeckWindow::_dispatch_notify(const NMHDR& notice) {
    if (notice.idFrom != tab_strip_item) {
        return frame::declined;
    }
    switch (notice.code) {
        case TCN_SELCHANGE:
            return frame::guarded(BS_HERE, [&] { return OnSelChange(); });
        case NM_RCLICK:
            return frame::guarded(BS_HERE, [&] { return OnTabRClick(); });
        default:
            return frame::declined;
    }
}

frame::answer COrderDeckWindow::OnInitDialog() {
    BS_REQUIRE(m_tab_ctrl.SubclassWindow(get_Item(tab_strip_item)), E_FAIL);
    _init_tab_images();
    m_panel->Create(m_hWnd);
    // The panel lies over the strip's page, so it stands before the strip.
    ::SetWindowPos(m_panel->get_Hwnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    m_setup_button = get_Item(setup_button_item);
    return 0;
}

void COrderDeckWindow::_init_tab_images() {
    m_images = frame::load_image_strip(tab_images, frame::scaled(m_hWnd, tab_image_size));
    if (BS_ASSERT_TEXT(m_images != nullptr, "0")) {
        TabCtrl_SetImageList(m_tab_ctrl.get_Hwnd(), m_images);
    }
}

void COrderDeckWindow::_destroy_images() {
    ::ImageList_Destroy(m_images);
    m_images = nullptr;
}

frame::answer COrderDeckWindow::OnSize() {
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    const auto place = [](HWND window, const RECT& at) {
        ::MoveWindow(window, at.left, at.top, at.right - at.left, at.bottom - at.top, TRUE);
    };
    place(m_tab_ctrl.get_Hwnd(), client);
    place(m_panel->get_Hwnd(), m_tab_ctrl.get_PageRect());
    RECT button = {};
    ::GetWindowRect(m_setup_button, &button);
    const LONG width = button.right - button.left;
    const LONG height = button.bottom - button.top;
    const LONG left = (client.right - width) / 2;
    const LONG top = (client.bottom - height) / 2;
    place(m_setup_button, {left, top, left + width, top + height});
    return 0;
}

// A click on a tab of an inactive bar works at once.
frame::answer COrderDeckWindow::OnMouseActivate() {
    const HWND focus = ::GetFocus();
    if (focus != m_hWnd && !::IsChild(m_hWnd, focus)) {
        ::SetFocus(m_tab_ctrl.get_Hwnd());
    }
    // The field that lost the focus asked the host, which may have torn the bar down.
    if (m_hWnd == nullptr) {
        return MA_ACTIVATE;
    }
    const int hit = m_tab_ctrl.HitTest(to_client(m_tab_ctrl.get_Hwnd(), cursor_position()));
    if (hit != -1 && hit != m_tab_ctrl.get_Current()) {
        m_tab_ctrl.Select(hit);
        _update(m_tab_ctrl.get_Id(hit), UpdateMask::AllFieldsAndRepaint, false, true);
    }
    return MA_ACTIVATE;
}

frame::answer COrderDeckWindow::OnBnClicked() {
    CGlobalData global;
    const auto command = platform::query<IOD_ProfileCmd>(global->create_command(eODC_ProfileEditor));
    BS_REQUIRE(command, E_POINTER);
    run_if_enabled(*command);
    return 0;
}

frame::answer COrderDeckWindow::OnSelChange() {
    m_tab_ctrl.OnSelChange();
    _update(m_tab_ctrl.get_CurrentId(), UpdateMask::AllFieldsAndRepaint, false, true);
    return 0;
}

frame::answer COrderDeckWindow::OnTabRClick() {
    const POINT at = cursor_position();
    const int hit = m_tab_ctrl.HitTest(to_client(m_tab_ctrl.get_Hwnd(), at));
    if (hit == -1) {
        return 0;
    }
    _select(hit);
    const auto tab = get_CurTab();
    BS_REQUIRE(tab, E_POINTER);
    run_profile_menu(m_hWnd, at, tab->get_Profile());
    return 0;
}

frame::answer COrderDeckWindow::OnFill(WPARAM wParam) {
    if (wParam == 1) {
        m_owner.EnsureFilled();
    }
    return 0;
}

}  // namespace OV_OrderDeck
