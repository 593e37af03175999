// Editors come and go all day with the tabs of a bar.
#include <windows.h>

#include <memory>

#include "tests/number_editors/editor_window_fixture.h"

namespace number_editors_tests {
namespace {

constexpr int rounds = 1000;

DWORD gdi_objects() {
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}

// Wine counts no handles for others, so what is left of windows is looked for among them too.
DWORD user_objects() {
    return GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
}

int windows_of_thread() {
    int count = 0;
    const auto add = [](HWND window, LPARAM total) -> BOOL {
        ++*reinterpret_cast<int*>(total);
        EnumChildWindows(
            window,
            [](HWND, LPARAM inner) -> BOOL {
                ++*reinterpret_cast<int*>(inner);
                return TRUE;
            },
            total);
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&count));
    return count;
}

template <class Editor>
void make_paint_and_destroy(HDC target) {
    quantity_owner host;
    Editor editor{&host};
    const HWND window = CreateWindowExW(0, L"EDIT", L"1500", WS_CHILD | ES_AUTOHSCROLL, 10, 40, 90, 20,
                                        reflecting_window(), nullptr, nullptr, nullptr);
    editor.SubclassWindow(window);
    if constexpr (std::is_same_v<Editor, editors::CQuantityCalc>) {
        editor.put_Images(211);
        SendMessageW(editor.get_Button(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(target), 0);
    }
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(target), PRF_CLIENT);
    DestroyWindow(window);
}

template <class Editor>
void expect_nothing_left() {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 30);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    // What the system makes once and keeps is made now.
    for (int i = 0; i < 20; ++i) {
        make_paint_and_destroy<Editor>(memory);
    }
    pump();
    const DWORD gdi = gdi_objects();
    const DWORD user = user_objects();
    const int windows = windows_of_thread();
    for (int i = 0; i < rounds; ++i) {
        make_paint_and_destroy<Editor>(memory);
        if (i % 100 == 0) {
            pump();
        }
    }
    pump();
    EXPECT_LE(gdi_objects(), gdi);
    EXPECT_LE(user_objects(), user);
    EXPECT_EQ(windows_of_thread(), windows);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

TEST(EditorLeaks, TenThousandNumberEditsLeaveNothing) {
    expect_nothing_left<editors::CNumberEditCtrl>();
}

TEST(EditorLeaks, TenThousandQuantitiesLeaveNothing) {
    expect_nothing_left<editors::CQuantityCalc>();
}

}  // namespace
}  // namespace number_editors_tests
