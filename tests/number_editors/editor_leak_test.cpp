// Editors come and go all day with the tabs of a bar.
#include <windows.h>

#include <algorithm>
#include <vector>

#include "tests/number_editors/editor_window_fixture.h"
#include "tests/support/highest_slots.h"

namespace number_editors_tests {
namespace {

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

// A bitmap to paint on.
class memory_target {
public:
    memory_target() : m_screen(GetDC(nullptr)), m_memory(CreateCompatibleDC(m_screen)) {
        m_bitmap = CreateCompatibleBitmap(m_screen, 100, 30);
        m_old = SelectObject(m_memory, m_bitmap);
    }
    ~memory_target() {
        SelectObject(m_memory, m_old);
        DeleteObject(m_bitmap);
        DeleteDC(m_memory);
        ReleaseDC(nullptr, m_screen);
    }
    memory_target(const memory_target&) = delete;
    memory_target& operator=(const memory_target&) = delete;

    HDC get() const { return m_memory; }

private:
    HDC m_screen;
    HDC m_memory;
    HBITMAP m_bitmap;
    HGDIOBJ m_old;
};

template <class Editor>
void expect_nothing_left(bool pictures) {
    const memory_target target;
    const left_behind left =
        left_behind::of([&] { make_paint_and_destroy<Editor>(target.get(), pictures); }, pump);
    EXPECT_TRUE(left.nothing()) << left.gdi << " of GDI, " << left.user << " of USER";
}

TEST(EditorLeaks, NumberEditsLeaveNothing) {
    expect_nothing_left<editors::CNumberEditCtrl>(false);
}

TEST(EditorLeaks, QuantitiesLeaveNothing) {
    expect_nothing_left<editors::CQuantityCalc>(false);
}

TEST(EditorLeaks, QuantitiesWithPicturesLeaveNothing) {
    expect_nothing_left<editors::CQuantityCalc>(true);
}

// What is left by editors of which every tenth leaves an object, which is gone afterwards.
template <class Make, class Remove>
left_behind of_leaking_editors(Make make, Remove remove) {
    const memory_target target;
    std::vector<decltype(make())> left;
    int round = 0;
    const left_behind result = left_behind::of(
        [&] {
            make_paint_and_destroy<editors::CNumberEditCtrl>(target.get(), false);
            if (round++ % 10 == 0) {
                left.push_back(make());
            }
        },
        pump);
    std::for_each(left.begin(), left.end(), remove);
    return result;
}

TEST(EditorLeaks, AnObjectThatEveryTenthEditorLeavesShows) {
    const left_behind brushes = of_leaking_editors([] { return CreateSolidBrush(RGB(1, 2, 3)); },
                                                   [](HBRUSH one) { DeleteObject(one); });
    EXPECT_GE(brushes.gdi, left_behind::shows);
    EXPECT_FALSE(brushes.nothing());
    const left_behind menus =
        of_leaking_editors([] { return CreateMenu(); }, [](HMENU one) { DestroyMenu(one); });
    EXPECT_GE(menus.user, left_behind::shows);
    EXPECT_FALSE(menus.nothing());
}

}  // namespace
}  // namespace number_editors_tests
