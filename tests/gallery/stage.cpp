#include "platform/win32/frame/common_controls.h"
#include "platform/win32/frame/module_instance.h"
#include "platform/win32/frame/reflect.h"
#include "tests/gallery/gallery.h"

namespace gallery {

namespace {

const wchar_t stage_class[] = L"OrderDeckGalleryStage";
constexpr int margin = 8;

// Hands the controls what an owner gets.
LRESULT CALLBACK stage_procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const frame::answer reflected = frame::reflect(message, wParam, lParam);
    return reflected ? *reflected : DefWindowProcW(window, message, wParam, lParam);
}

void register_class() {
    WNDCLASSW description = {};
    description.lpfnWndProc = &stage_procedure;
    description.hInstance = frame::module_instance();
    description.lpszClassName = stage_class;
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&description);
}

HFONT font_of(UINT dpi) {
    LOGFONTW wanted = {};
    wanted.lfHeight = -MulDiv(8, static_cast<int>(dpi), 72);
    wanted.lfCharSet = DEFAULT_CHARSET;
    lstrcpyW(wanted.lfFaceName, L"MS Shell Dlg");
    return CreateFontIndirectW(&wanted);
}

// One for all pictures: without a window manager Wine waits for two seconds when such a window ends.
HWND shared_parent() {
    static const HWND parent = [] {
        register_class();
        return CreateWindowExW(WS_EX_CONTROLPARENT, stage_class, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN,
                               0, 40, 2600, 320, nullptr, nullptr, frame::module_instance(), nullptr);
    }();
    return parent;
}

}  // namespace

stage::stage(look wanted, UINT dpi)
    : m_look(wanted), m_dpi(dpi), m_font(font_of(dpi)), m_parent(shared_parent()) {
    SetActiveWindow(m_parent);
    SetFocus(m_parent);
}

stage::~stage() {
    SetFocus(m_parent);
    while (const HWND child = GetWindow(m_parent, GW_CHILD)) {
        DestroyWindow(child);
    }
    DeleteObject(m_font);
}

HWND stage::put(const wchar_t* window_class, const wchar_t* text, DWORD style, SIZE size, DWORD ex_style) {
    const frame::common_controls_scope scope;
    const HWND window =
        CreateWindowExW(ex_style, window_class, text, style | WS_CHILD | WS_VISIBLE, scaled(margin),
                        scaled(margin), scaled(static_cast<int>(size.cx)), scaled(static_cast<int>(size.cy)),
                        m_parent, nullptr, frame::module_instance(), nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), TRUE);
    return window;
}

entry::entry(std::string entry_name, std::vector<state> entry_states, maker entry_make)
    : name(std::move(entry_name)), states(std::move(entry_states)), make(std::move(entry_make)) {
    all().push_back(this);
}

std::vector<const entry*>& entry::all() {
    static std::vector<const entry*> entries;
    return entries;
}

void pump() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace gallery
