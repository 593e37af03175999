// The ladder's pictures without a visual style, in a program of their own: it can't be had back in one
// process.
#include <gtest/gtest.h>

#include "charting/orderdeck/src/window/RangeImages.h"
#include "tests/range_bar/image_canvas.h"
#include "tests/support/screen_scheme.h"

namespace {

using namespace OV_OrderDeck;
using range_bar_tests::image_canvas;

constexpr int width = 41;
constexpr int height = 16;
constexpr COLORREF light = RGB(250, 250, 250);
constexpr COLORREF arrow = RGB(50, 50, 50);
// Five by five in the middle.
constexpr RECT box = {18, 5, 23, 10};
const std::vector<std::string> up = {".....", "..#..", ".###.", "#####", "....."};
const std::vector<std::string> down = {".....", "#####", ".###.", "..#..", "....."};

class ClassicRangeImages : public testing::Test {
protected:
    ClassicRangeImages() {
        screen_scheme::leave_visual_style();
        images = make_range_images(nullptr, width, height);
    }
    ~ClassicRangeImages() override { ImageList_Destroy(images); }

    // Upper and left edges in one colour, the others in another, and the face between them.
    static void expect_edges(const image_canvas& shown, COLORREF upper, COLORREF lower) {
        for (int x = 1; x < width - 1; ++x) {
            ASSERT_EQ(shown.at(x, 0), upper) << x;
            ASSERT_EQ(shown.at(x, height - 1), lower) << x;
        }
        for (int y = 1; y < height - 1; ++y) {
            ASSERT_EQ(shown.at(0, y), upper) << y;
            ASSERT_EQ(shown.at(width - 1, y), lower) << y;
        }
        EXPECT_EQ(shown.at(0, 0), upper);
        EXPECT_EQ(shown.at(width - 1, height - 1), lower);
        EXPECT_EQ(shown.at(1, 1), GetSysColor(COLOR_BTNFACE));
        EXPECT_EQ(shown.at(width - 2, height - 2), GetSysColor(COLOR_BTNFACE));
    }

    HIMAGELIST images;
};

TEST_F(ClassicRangeImages, AreRaisedFacesWithArrowsAndSunkenOnesWhenPressed) {
    ASSERT_FALSE(IsAppThemed());
    const COLORREF dark = GetSysColor(COLOR_3DDKSHADOW);
    ASSERT_NE(dark, light);
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        const image_canvas shown(width, height);
        ImageList_Draw(images, i, shown.dc(), 0, 0, ILD_NORMAL);
        const bool pressed = i % 3 == 2;
        expect_edges(shown, pressed ? dark : light, pressed ? light : dark);
        EXPECT_EQ(shown.lines(box, arrow), i < 3 ? up : down);
    }
}

}  // namespace
