#include "charting/orderdeck/src/window/RangeImages.h"

#include <gtest/gtest.h>

#include <uxtheme.h>
#include <vssym32.h>

#include <string>
#include <vector>

#include "tests/range_bar/image_canvas.h"
#include "tests/support/diagnostics_recorder.h"
#include "unicomp/wtlcontrols/buttonst/ButtonSTRendererEx.h"

namespace {

using namespace OV_OrderDeck;
using range_bar_tests::image_canvas;

TEST(RangeImages, AreSixSixteenHighAndAsWideAsTheBar) {
    const HIMAGELIST images = make_range_images(nullptr, 40, 12);
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(images, &width, &height);
    EXPECT_EQ(width, 40);
    EXPECT_EQ(height, 16);
    EXPECT_EQ(ImageList_GetImageCount(images), 6);
    ImageList_Destroy(images);
}

TEST(RangeImages, AreTheSpinsOfTheVisualStyle) {
    ASSERT_TRUE(IsAppThemed());
    constexpr int width = 41;
    constexpr int height = 16;
    const HIMAGELIST images = make_range_images(nullptr, width, height);
    const HTHEME theme = OpenThemeData(nullptr, L"SPIN");
    for (int i = 0; i < 6; ++i) {
        const image_canvas expected(width, height);
        expected.fill(GetSysColor(COLOR_BTNFACE));
        const RECT all = {0, 0, width, height};
        DrawThemeBackground(theme, expected.dc(), i < 3 ? SPNP_UP : SPNP_DOWN, i % 3 + 1, &all, nullptr);
        const image_canvas shown(width, height);
        ImageList_Draw(images, i, shown.dc(), 0, 0, ILD_NORMAL);
        EXPECT_EQ(shown.pixels(), expected.pixels()) << i;
    }
    CloseThemeData(theme);
    ImageList_Destroy(images);
}

std::vector<std::string> arrow(bool up) {
    const image_canvas canvas(5, 5);
    canvas.fill(RGB(255, 255, 255));
    WTLControls::DrawArrow(canvas.dc(), {0, 0, 5, 5}, RGB(50, 50, 50), up);
    return canvas.lines({0, 0, 5, 5}, RGB(50, 50, 50));
}

TEST(DrawArrow, IsATriangleWithItsFlatSideAwayFromItsPoint) {
    EXPECT_EQ(arrow(true), (std::vector<std::string>{".....", "..#..", ".###.", "#####", "....."}));
    EXPECT_EQ(arrow(false), (std::vector<std::string>{".....", "#####", ".###.", "..#..", "....."}));
}

TEST(DrawArrow, ReportsASurfaceThatIsNone) {
    diagnostics_recorder reports;
    WTLControls::DrawArrow(nullptr, {0, 0, 5, 5}, 0, true);
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"hDC");
}

}  // namespace
