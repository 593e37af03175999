// Pictures from the resources, and the surface in memory that buttons are drawn on.
#include <gtest/gtest.h>

#include <windows.h>

#include "platform/resources.h"
#include "tests/support/diagnostics_recorder.h"
#include "unicomp/wtlcontrols/buttonst/GdiPlusBitmap.h"
#include "unicomp/wtlcontrols/buttonst/MemoryDCEx.h"

namespace {

using namespace WTLControls;

TEST(PngBitmap, IsDecodedFromTheResources) {
    CGdiPlusBitmapResource picture;
    EXPECT_EQ(picture.get_Bitmap(), nullptr);
    ASSERT_TRUE(picture.Load(211));
    BITMAP what = {};
    ASSERT_NE(GetObjectW(picture.get_Bitmap(), sizeof(what), &what), 0);
    EXPECT_EQ(what.bmHeight, 16);
    EXPECT_EQ(what.bmWidth, picture.get_Size().cx);
    EXPECT_EQ(what.bmBitsPixel, 32);
}

TEST(PngBitmap, AMissingOneFailsQuietlyAndLeavesNoPicture) {
    const diagnostics_recorder reports;
    CGdiPlusBitmapResource picture;
    ASSERT_TRUE(picture.Load(211));
    EXPECT_FALSE(picture.Load(9999));
    EXPECT_EQ(picture.get_Bitmap(), nullptr);
    EXPECT_TRUE(reports.assertions().empty());
    EXPECT_TRUE(reports.traces().empty());
}

TEST(PngBitmap, AResourceThatIsNoPictureFailsQuietlyAndLeavesNoPicture) {
    const diagnostics_recorder reports;
    ASSERT_FALSE(platform::load_png(9998).empty());
    CGdiPlusBitmapResource picture;
    ASSERT_TRUE(picture.Load(211));
    EXPECT_FALSE(picture.Load(9998));
    EXPECT_EQ(picture.get_Bitmap(), nullptr);
    EXPECT_EQ(picture.get_Size().cx, 0);
    EXPECT_TRUE(reports.assertions().empty());
    EXPECT_TRUE(reports.traces().empty());
}

TEST(MemoryDC, CopiesItsRectangleWhenItEnds) {
    const HDC screen = GetDC(nullptr);
    const HDC target = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 20, 20);
    const HGDIOBJ old = SelectObject(target, bitmap);
    PatBlt(target, 0, 0, 20, 20, BLACKNESS);
    CustomDraw::CMemorySurface surface;
    {
        CustomDraw::CMemoryDCEx memory(surface, target, {5, 5, 10, 10});
        PatBlt(memory, 0, 0, 20, 20, WHITENESS);
        EXPECT_EQ(GetPixel(target, 7, 7), RGB(0, 0, 0)) << "nothing is seen before the end";
        memory.__Reset();
        EXPECT_EQ(GetPixel(target, 7, 7), RGB(255, 255, 255));
        PatBlt(target, 0, 0, 20, 20, BLACKNESS);
    }
    EXPECT_EQ(GetPixel(target, 7, 7), RGB(0, 0, 0)) << "it was copied once";
    { CustomDraw::CMemoryDCEx(surface, target, {5, 5, 10, 10}); }
    EXPECT_EQ(GetPixel(target, 5, 5), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(target, 4, 5), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(target, 10, 9), RGB(0, 0, 0));
    SelectObject(target, old);
    DeleteObject(bitmap);
    DeleteDC(target);
    ReleaseDC(nullptr, screen);
}

}  // namespace
