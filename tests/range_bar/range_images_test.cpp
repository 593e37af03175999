#include "charting/orderdeck/src/window/RangeImages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/diagnostics_recorder.h"
#include "unicomp/wtlcontrols/buttonst/ButtonSTRendererEx.h"

namespace {

using namespace OV_OrderDeck;

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

class arrow_canvas {
public:
    arrow_canvas() {
        const HDC screen = GetDC(nullptr);
        m_dc = CreateCompatibleDC(screen);
        m_bitmap = CreateCompatibleBitmap(screen, 5, 5);
        ReleaseDC(nullptr, screen);
        m_old = SelectObject(m_dc, m_bitmap);
        PatBlt(m_dc, 0, 0, 5, 5, WHITENESS);
    }
    ~arrow_canvas() {
        SelectObject(m_dc, m_old);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }
    arrow_canvas(const arrow_canvas&) = delete;
    arrow_canvas& operator=(const arrow_canvas&) = delete;

    std::vector<std::string> draw(bool up) const {
        WTLControls::DrawArrow(m_dc, {0, 0, 5, 5}, RGB(50, 50, 50), up);
        std::vector<std::string> lines;
        for (int y = 0; y < 5; ++y) {
            std::string line;
            for (int x = 0; x < 5; ++x) {
                line += GetPixel(m_dc, x, y) == RGB(50, 50, 50) ? '#' : '.';
            }
            lines.push_back(line);
        }
        return lines;
    }

private:
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_old;
};

TEST(DrawArrow, IsATriangleWithItsFlatSideAwayFromItsPoint) {
    EXPECT_EQ(arrow_canvas().draw(true),
              (std::vector<std::string>{".....", "..#..", ".###.", "#####", "....."}));
    EXPECT_EQ(arrow_canvas().draw(false),
              (std::vector<std::string>{".....", "#####", ".###.", "..#..", "....."}));
}

TEST(DrawArrow, ReportsASurfaceThatIsNone) {
    diagnostics_recorder reports;
    WTLControls::DrawArrow(nullptr, {0, 0, 5, 5}, 0, true);
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"hDC");
}

}  // namespace
