// Editors come and go all day with the tabs of a bar.
#include <windows.h>

#include "tests/number_editors/editor_window_fixture.h"
#include "tests/support/highest_slots.h"

namespace number_editors_tests {
namespace {

constexpr int many = 10000;
// Decoding pictures takes the most of an editor's time, so fewer come with them.
constexpr int fewer = 500;

template <class Editor>
void make_paint_and_destroy(HDC target, bool pictures) {
    quantity_owner host;
    Editor editor{&host};
    const HWND window = CreateWindowExW(0, L"EDIT", L"1500", WS_CHILD | ES_AUTOHSCROLL, 10, 40, 90, 20,
                                        reflecting_window(), nullptr, nullptr, nullptr);
    editor.SubclassWindow(window);
    if constexpr (std::is_same_v<Editor, editors::CQuantityCalc>) {
        if (pictures) {
            editor.put_Images(211);
        }
        SendMessageW(editor.get_Button(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(target), 0);
    }
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(target), PRF_CLIENT);
    DestroyWindow(window);
}

template <class Editor>
void expect_nothing_left(int rounds, bool pictures) {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 30);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    // What the system makes once and keeps is made now.
    for (int i = 0; i < 20; ++i) {
        make_paint_and_destroy<Editor>(memory, pictures);
    }
    pump();
    const highest_slots before;
    for (int i = 0; i < rounds; ++i) {
        make_paint_and_destroy<Editor>(memory, pictures);
        if (i % 100 == 0) {
            pump();
        }
    }
    pump();
    // One object left by every tenth editor would show.
    const highest_slots after;
    EXPECT_LT(after.gdi - before.gdi, rounds / 10);
    EXPECT_LT(after.user - before.user, rounds / 10);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

TEST(EditorLeaks, TenThousandNumberEditsLeaveNothing) {
    expect_nothing_left<editors::CNumberEditCtrl>(many, false);
}

TEST(EditorLeaks, TenThousandQuantitiesLeaveNothing) {
    expect_nothing_left<editors::CQuantityCalc>(many, false);
}

TEST(EditorLeaks, QuantitiesWithPicturesLeaveNothing) {
    expect_nothing_left<editors::CQuantityCalc>(fewer, true);
}

}  // namespace
}  // namespace number_editors_tests
