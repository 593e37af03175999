// What the ladder draws, and when.
#include <algorithm>

#include "charting/orderdeck/src/window/RangeImages.h"
#include "tests/range_bar/range_bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using button_tests::snapshot;

constexpr COLORREF pink = RGB(255, 190, 190);
constexpr COLORREF green = RGB(202, 215, 173);
constexpr COLORREF blue = RGB(177, 197, 241);

class RangeBarPaint : public range_bar_tests::range_bar_test {
protected:
    bool waits_for_paint() { return GetUpdateRect(bar(), nullptr, FALSE) != FALSE; }
    HWND arrow(int id) { return GetDlgItem(bar(), id); }
    // A small button as it is and as one of the pictures made for the ladder's width.
    void expect_picture(int id, int image) {
        const snapshot shown(arrow(id));
        const auto width = static_cast<int>(ladder().get_Width());
        const auto height = static_cast<int>(ladder().get_ButtonHeight());
        const HIMAGELIST images = make_range_images(bar(), width, height);
        const HDC screen = GetDC(nullptr);
        const HDC dc = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
        const HGDIOBJ old = SelectObject(dc, bitmap);
        ImageList_Draw(images, image, dc, 0, 0, ILD_NORMAL);
        int different = 0;
        for (int i = 0; i < width * height; ++i) {
            different += GetPixel(dc, i % width, i / width) != shown.at(i % width, i / width) ? 1 : 0;
        }
        EXPECT_EQ(different, 0) << id << " shows another picture than " << image;
        SelectObject(dc, old);
        DeleteObject(bitmap);
        DeleteDC(dc);
        ReleaseDC(nullptr, screen);
        ImageList_Destroy(images);
    }
};

TEST_F(RangeBarPaint, RowsHaveTheColourOfTheirPlace) {
    open();
    const snapshot shown(bar());
    const auto ground = [&](LONG row) {
        return shown.at(2, static_cast<int>(ladder().get_RowRect(row).top + 2));
    };
    for (LONG row = 0; row < 7; ++row) {
        EXPECT_EQ(ground(row), row < 3 ? pink : row == 3 ? green : blue) << row;
    }
    EXPECT_EQ(shown.at(5, static_cast<int>(ladder().get_RowRect(3).top)), GetSysColor(COLOR_3DDKSHADOW));
}

TEST_F(RangeBarPaint, TheRowUnderTheMouseIsHotUntilItLeaves) {
    open();
    send(WM_MOUSEMOVE, 0, MAKELPARAM(5, y_of(1)));
    EXPECT_EQ(ladder().get_HotRow(), 1);
    EXPECT_EQ(GetFocus(), bar()) << "the first move takes the focus";
    const snapshot shown(bar());
    const LONG y = ladder().get_RowRect(1).top + 3;
    EXPECT_EQ(shown.at(2, static_cast<int>(y)), pink ^ 0xFFFFFF);
    SetFocus(window);
    send(WM_MOUSEMOVE, 0, MAKELPARAM(5, y_of(2)));
    EXPECT_EQ(ladder().get_HotRow(), 2);
    EXPECT_EQ(GetFocus(), window) << "a later one does not";
    send(WM_MOUSELEAVE);
    EXPECT_EQ(ladder().get_HotRow(), -1);
    send(WM_MOUSEMOVE, 0, MAKELPARAM(5, y_of(2)));
    EXPECT_EQ(GetFocus(), bar()) << "the next visit begins anew";
}

TEST_F(RangeBarPaint, AThemeChangeDrawsItAnew) {
    open();
    UpdateWindow(bar());
    EXPECT_EQ(send(WM_THEMECHANGED), 0);
    EXPECT_TRUE(GetUpdateRect(bar(), nullptr, FALSE));
}

TEST_F(RangeBarPaint, NewPricesAreDrawnAnew) {
    open();
    const auto draws = [&](UINT message, WPARAM wParam) {
        UpdateWindow(bar());
        EXPECT_FALSE(waits_for_paint());
        send(message, wParam);
        return waits_for_paint();
    };
    EXPECT_TRUE(draws(WM_KEYDOWN, VK_UP));
    EXPECT_TRUE(draws(WM_MOUSEWHEEL, MAKEWPARAM(0, 120)));
    EXPECT_TRUE(draws(WM_COMMAND, 10001));
    EXPECT_FALSE(draws(WM_KEYDOWN, VK_HOME));
    EXPECT_FALSE(draws(WM_MOUSEWHEEL, 0));
    UpdateWindow(bar());
    button.SetQuotes(100.25, 99.5);
    button.Redraw();
    EXPECT_TRUE(waits_for_paint());
}

TEST_F(RangeBarPaint, PricesStandAtTheRight) {
    button.SetQuotes(123456789.25, 1.0);
    button.Redraw();
    button.SetQuotes(9.5, 9.25);
    button.Redraw();
    open();
    const snapshot shown(bar());
    const RECT row = ladder().get_RowRect(0);
    const auto right = static_cast<int>(ladder().get_Width()) - 1;
    int first = right;
    int last = 0;
    for (auto y = static_cast<int>(row.top) + 1; y < row.bottom - 1; ++y) {
        for (int x = 1; x < right; ++x) {
            if (shown.at(x, y) != pink) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
        }
    }
    EXPECT_GT(first, right / 2);
    EXPECT_GT(last, right - 8);
}

TEST_F(RangeBarPaint, ItsButtonsShowThePicturesOfTheirState) {
    open();
    expect_picture(10001, 0);
    expect_picture(10002, 3);
    for (const int id : {10001, 10002}) {
        const int first = id == 10001 ? 0 : 3;
        SendMessageW(arrow(id), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
        expect_picture(id, first + 1);
        SendMessageW(arrow(id), BM_SETSTATE, TRUE, 0);
        expect_picture(id, first + 2);
        SendMessageW(arrow(id), BM_SETSTATE, FALSE, 0);
        SendMessageW(arrow(id), WM_MOUSELEAVE, 0, 0);
        expect_picture(id, first);
    }
}

TEST_F(RangeBarPaint, ThePicturesAreMadeAnewForAnotherWidth) {
    button.SetQuotes(123456789.25, 1.0);
    button.Redraw();
    ASSERT_GT(ladder().get_Width(), 40);
    open();
    expect_picture(10001, 0);
    expect_picture(10002, 3);
    button.SetFormat(2, 1);
    ASSERT_EQ(ladder().get_Width(), 40);
    open();
    expect_picture(10001, 0);
    expect_picture(10002, 3);
}

}  // namespace
