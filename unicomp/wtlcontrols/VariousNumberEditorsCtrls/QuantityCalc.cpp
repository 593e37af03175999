#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/QuantityCalc.h"

#include <TradingCenter.h>
#include <uxtheme.h>

#include "platform/com_create.h"
#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/png_image.h"
#include "platform/win32/frame/resolution.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberTexts.h"

namespace WTLControls::NumberEditors {

namespace {

// At 96 to the inch, as the pictures.
constexpr int button_size = 16;
constexpr int button_from_right = 32;
constexpr int button_top = 1;
constexpr int margin = 2;
constexpr double least = 1.0;
constexpr double most = 1000000000.0;

// Of the visual style when there is one.
COLORREF background_colour(HWND edit, bool enabled) {
    const int colour = enabled ? COLOR_WINDOW : COLOR_BTNFACE;
    if (::IsAppThemed()) {
        if (const HTHEME theme = ::OpenThemeData(edit, L"Edit")) {
            const COLORREF result = ::GetThemeSysColor(theme, colour);
            ::CloseThemeData(theme);
            return result;
        }
    }
    return ::GetSysColor(colour);
}

// The window that a click on a child brings to the front: the first with a caption or a border, or the
// outermost.
HWND framed_window(HWND window) {
    const HWND root = ::GetAncestor(window, GA_ROOT);
    while (window != root && (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == 0) {
        window = ::GetAncestor(window, GA_PARENT);
    }
    return window;
}

void activate(HWND window) {
    if ((::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_MDICHILD) != 0) {
        ::SendMessageW(::GetParent(window), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(window), 0);
    } else if (::GetAncestor(window, GA_ROOT) == window && ::GetActiveWindow() != window) {
        ::SetActiveWindow(window);
    }
}

}  // namespace

CQuantityCalc::~CQuantityCalc() {
    if (m_images != nullptr) {
        ::ImageList_Destroy(m_images);
    }
}

bool CQuantityCalc::SubclassWindow(HWND hWnd) {
    if (!CNaturalNumbersEditorCtrl::SubclassWindow(hWnd)) {
        return false;
    }
    m_background = background_colour(m_hWnd, ::IsWindowEnabled(m_hWnd) != FALSE);
    _make_button();
    AddStyle(ES_NUMBER);
    SetParams(1.0, least, most, EEditType::Integer);
    return true;
}

void CQuantityCalc::_make_button() {
    const frame::common_controls_scope scope;
    const HWND button = ::CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 0, 0, 0, 0, m_hWnd,
                                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(editor_child_id)),
                                          frame::module_instance(), nullptr);
    if (button == nullptr || !m_button.SubclassWindow(button)) {
        return;
    }
    _place_button();
    ::SetWindowPos(button, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW | SWP_NOACTIVATE);
    // Deliberately more than the spin's margin: no digit stands under the button.
    ::SendMessageW(m_hWnd, EM_SETMARGINS, EC_RIGHTMARGIN,
                   MAKELPARAM(0, frame::scaled(m_hWnd, button_from_right + margin)));
}

void CQuantityCalc::_place_button() const {
    if (get_Button() == nullptr) {
        return;
    }
    RECT client = {};
    ::GetClientRect(m_hWnd, &client);
    const int height = client.bottom - client.top;
    const int left = client.right - client.left - frame::scaled(m_hWnd, button_from_right);
    ::MoveWindow(get_Button(), left, button_top, frame::scaled(m_hWnd, button_size), height, TRUE);
}

void CQuantityCalc::put_Images(UINT strip) {
    if (m_images != nullptr) {
        ::ImageList_Destroy(m_images);
    }
    m_images = frame::load_image_strip(strip, frame::scaled(m_hWnd, button_size));
    BS_ASSERT_TEXT(m_images != nullptr, "0");
    m_button.put_Images(m_images);
}

BOOL CQuantityCalc::ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                         DWORD dwMsgMapID) {
    if (dwMsgMapID == 0 &&
        frame::take(frame::guarded(BS_HERE, [&] { return _dispatch(uMsg, wParam, lParam); }), lResult)) {
        return TRUE;
    }
    const BOOL taken =
        CNaturalNumbersEditorCtrl::ProcessWindowMessage(hWnd, uMsg, wParam, lParam, lResult, dwMsgMapID);
    if (DrawsOverChildren(uMsg)) {
        m_button.Repaint();
    }
    return taken;
}

frame::answer CQuantityCalc::_dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    switch (uMsg) {
        case WM_ENABLE:
            return _on_enable(wParam, lParam);
        case WM_ERASEBKGND:
            Invalidate(get_Button());
            Invalidate(get_Spin());
            return DefWindowProc(uMsg, wParam, lParam);
        case WM_LBUTTONUP:
            return _on_button_up(wParam, lParam);
        case WM_COMMAND:
            if (LOWORD(wParam) != editor_child_id || HIWORD(wParam) != BN_CLICKED) {
                return frame::declined;
            }
            OnButtonClicked();
            return 0;
        case WM_KEYDOWN:
            if (wParam != VK_F4) {
                return frame::declined;
            }
            OnButtonClicked();
            return 0;
        case WM_SIZE:
            _place_button();
            return frame::declined;
        default:
            return frame::declined;
    }
}

frame::answer CQuantityCalc::_on_enable(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DefWindowProc(WM_ENABLE, wParam, lParam);
    m_background = background_colour(m_hWnd, wParam != FALSE);
    ::EnableWindow(get_Button(), wParam != FALSE);
    m_button.Repaint();
    return result;
}

frame::answer CQuantityCalc::_on_button_up(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DefWindowProc(WM_LBUTTONUP, wParam, lParam);
    const HWND framed = framed_window(m_hWnd);
    if (framed != m_hWnd) {
        activate(framed);
    }
    if (::GetFocus() != m_hWnd) {
        ::SetFocus(m_hWnd);
        const LONG at = LOWORD(::SendMessageW(m_hWnd, EM_CHARFROMPOS, 0, lParam));
        ::SendMessageW(m_hWnd, EM_SETSEL, static_cast<WPARAM>(at), at);
    }
    return result;
}

void CQuantityCalc::OnButtonClicked() {
    com_ptr<IQuantityCalculator> calculator;
    const HRESULT hRes = platform::create_running(CLSID_QuantityCalculator, calculator);
    if (!BS_ASSERT_OK_TEXT(hRes, "((HRESULT)0L) == hRes")) {
        return;
    }
    const HWND edit = m_hWnd;
    const LONG present = cut_to_integer(GetValue());
    LONG quantity = present;
    const HRESULT result =
        calculator->Calculate(reinterpret_cast<ULONG_PTR>(edit), present, m_mode, &quantity);
    // The edit may have gone while the calculator was open.
    if (SUCCEEDED(result) && ::IsWindow(edit)) {
        SetValue(quantity);
    }
}

}  // namespace WTLControls::NumberEditors
