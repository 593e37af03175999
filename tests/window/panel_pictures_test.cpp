// What the panel's own drawing and that of its parts leaves on the screen.
#include <windows.h>

#include <commctrl.h>

#include <cstdlib>

#include "platform/win32/frame/png_image.h"
#include "tests/buttons/button_fixture.h"
#include "tests/support/win32/dialog_resolution.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using button_tests::snapshot;

class PanelPictures : public window_tests::bar_test {
protected:
    PanelPictures() { tab = add(L"A"); }

    SIZE size_of(HWND window) const {
        RECT client = {};
        GetClientRect(window, &client);
        return {client.right, client.bottom};
    }
    // Pixels of an edit that are not its ground.
    int ink(int id) const {
        const SIZE size = size_of(item(id));
        const snapshot shown(item(id));
        int count = 0;
        for (int y = 0; y < size.cy; ++y) {
            for (int x = 0; x < size.cx; ++x) {
                count += shown.at(x, y) != shown.at(size.cx - 1, 0) ? 1 : 0;
            }
        }
        return count;
    }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

// No channel is further away than a gradient's first steps and an edge take it.
void expect_near(COLORREF shown, COLORREF wanted) {
    EXPECT_LE(std::abs(GetRValue(shown) - GetRValue(wanted)), 8) << std::hex << shown << " " << wanted;
    EXPECT_LE(std::abs(GetGValue(shown) - GetGValue(wanted)), 8) << std::hex << shown << " " << wanted;
    EXPECT_LE(std::abs(GetBValue(shown) - GetBValue(wanted)), 8) << std::hex << shown << " " << wanted;
}

TEST_F(PanelPictures, BuyIsBlueAndSellIsRedFromTheirLighterColourDownToTheirDarker) {
    struct button {
        int id;
        COLORREF top;
        COLORREF bottom;
    };
    for (const button& each : {button{225, 0xF1D0C0, 0xCBB0A0}, button{227, 0xC5C5F1, 0x8181D7}}) {
        const snapshot shown(item(each.id));
        const SIZE size = size_of(item(each.id));
        expect_near(shown.at(6, 4), each.top);
        expect_near(shown.at(6, size.cy - 6), each.bottom);
    }
}

TEST_F(PanelPictures, ATradeButtonLooksPressedUntilItIsReleased) {
    for (const int id : {225, 227}) {
        const snapshot at_rest(item(id));
        SendMessageW(item(id), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(6, 6));
        const snapshot pressed(item(id));
        SendMessageW(item(id), WM_LBUTTONUP, 0, MAKELPARAM(-6, -6));
        SendMessageW(item(id), WM_MOUSELEAVE, 0, 0);
        SetFocus(frame);
        EXPECT_NE(pressed.at(6, 6), at_rest.at(6, 6)) << id;
        EXPECT_EQ(snapshot(item(id)).at(6, 6), at_rest.at(6, 6)) << id;
    }
}

TEST_F(PanelPictures, TheQuotesHaveTheColourOfTheMidAtFirst) {
    const snapshot shown(item(231));
    const SIZE size = size_of(item(231));
    expect_near(shown.at(6, 5), 0xADD7CA);
    expect_near(shown.at(6, size.cy - 6), 0xADD7CA);
}

TEST_F(PanelPictures, AnEmptyPriceSaysWhatItIsUntilItHasTheFocusOrAText) {
    SetFocus(item(209));
    ASSERT_EQ(text(214), L"");
    const int first = ink(214);
    const int second = ink(217);
    EXPECT_GT(first, 40);
    EXPECT_GT(second, 40);
    EXPECT_NE(first, second) << "each has a name of its own";
    SetFocus(item(214));
    HideCaret(item(214));
    EXPECT_EQ(ink(214), 0);
    EXPECT_EQ(ink(217), second);
    SetFocus(item(209));
    EXPECT_EQ(ink(214), first);
    tab->field(eODUE_FirstPrice).value = L".";
    bar->Update(tab->id, eODUE_FirstPrice);
    EXPECT_LT(ink(214), first);
}

// The first picture of a strip on the ground of an edit.
std::vector<COLORREF> first_picture(UINT strip, int side = 16) {
    const HIMAGELIST images = frame::load_image_strip(strip);
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, side, side);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    const RECT all = {0, 0, side, side};
    FillRect(memory, &all, GetSysColorBrush(COLOR_WINDOW));
    ImageList_Draw(images, 0, memory, 0, 0, ILD_NORMAL);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            pixels.push_back(GetPixel(memory, x, y));
        }
    }
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    ImageList_Destroy(images);
    return pixels;
}

// The same of a button, with what it has no room for left out.
std::vector<COLORREF> picture_of(HWND button, int side = 16) {
    const snapshot all(button);
    RECT client = {};
    GetClientRect(button, &client);
    std::vector<COLORREF> pixels;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            pixels.push_back(y < client.bottom && x < client.right ? all.at(x, y) : CLR_INVALID);
        }
    }
    return pixels;
}

bool alike(const std::vector<COLORREF>& shown, const std::vector<COLORREF>& drawn) {
    int same = 0;
    int both = 0;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        both += shown[i] != CLR_INVALID ? 1 : 0;
        same += shown[i] == drawn[i] ? 1 : 0;
    }
    return both > 150 && same == both;
}

TEST_F(PanelPictures, TheSmallButtonsShowTheirOwnPictures) {
    const HWND of_symbol = GetDlgItem(item(203), 203);
    const HWND of_quantity = GetDlgItem(item(209), 10003);
    ASSERT_NE(of_symbol, nullptr);
    ASSERT_NE(of_quantity, nullptr);
    EXPECT_TRUE(alike(picture_of(of_symbol), first_picture(232)));
    EXPECT_FALSE(alike(picture_of(of_symbol), first_picture(211)));
    EXPECT_TRUE(alike(picture_of(of_quantity), first_picture(211)));
}

// Sizes of 96 to the inch at a resolution: the buttons, what lies right of the quantity's, and the pictures.
TEST_F(PanelPictures, TheSmallButtonsAndTheirPicturesGrowWithTheResolution) {
    struct size {
        int dpi;
        int side;
    };
    for (const size& each : {size{96, 16}, size{120, 20}, size{144, 24}, size{192, 32}}) {
        SCOPED_TRACE(each.dpi);
        const test::dialog_resolution scope(each.dpi);
        bar = boost::make_shared<COrderDeckWindow>(frame, owner);
        MoveWindow(bar->get_Hwnd(), 0, 0, 1200, 150, TRUE);
        add(L"A");
        const HWND of_symbol = GetDlgItem(item(203), 203);
        const HWND of_quantity = GetDlgItem(item(209), 10003);
        EXPECT_EQ(size_of(of_symbol).cx, each.side);
        EXPECT_EQ(size_of(of_quantity).cx, each.side);
        RECT place = {};
        GetWindowRect(of_quantity, &place);
        MapWindowPoints(nullptr, item(209), reinterpret_cast<POINT*>(&place), 2);
        EXPECT_EQ(size_of(item(209)).cx - place.left, 2 * each.side);
        EXPECT_GE(HIWORD(SendMessageW(item(209), EM_GETMARGINS, 0, 0)), 2 * each.side);
        if (each.dpi > 96) {
            const HWND spin = FindWindowExW(item(209), nullptr, UPDOWN_CLASSW, nullptr);
            EXPECT_EQ(size_of(spin).cx, MulDiv(GetSystemMetrics(SM_CXHSCROLL), each.dpi, 96));
        }
        const auto drawn = static_cast<UINT>(each.side == 16 ? 0 : each.side);
        const auto number = [&](UINT id) { return drawn == 0 ? id : id * 100 + drawn; };
        EXPECT_TRUE(alike(picture_of(of_symbol, each.side), first_picture(number(232), each.side)));
        EXPECT_TRUE(alike(picture_of(of_quantity, each.side), first_picture(number(211), each.side)));
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(TabCtrl_GetImageList(strip()), &width, &height);
        EXPECT_EQ(height, each.side);
    }
}

}  // namespace
