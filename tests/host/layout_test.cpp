#include "layout.h"

#include <gtest/gtest.h>

namespace host {
namespace {

constexpr frame_metrics usual{1440, 820, 22, 84, 6, 20, 500};

TEST(HostLayout, TheBarFillsTheWidthAboveTheStatusLine) {
    EXPECT_EQ(lay_out(usual).bar, (box{0, 714, 1440, 798}));
    frame_metrics wider = usual;
    wider.width = 1600;
    wider.height = 900;
    EXPECT_EQ(lay_out(wider).bar, (box{0, 794, 1600, 878}));
}

TEST(HostLayout, TheListTakesItsWidthAndOrdersAndLogTheRest) {
    const frame_layout result = lay_out(usual);
    EXPECT_EQ(result.instruments_title, (box{6, 0, 506, 20}));
    EXPECT_EQ(result.instruments, (box{6, 20, 506, 708}));
    EXPECT_EQ(result.blotter_title, (box{512, 0, 1434, 20}));
    EXPECT_EQ(result.blotter, (box{512, 20, 1434, 472}));
    EXPECT_EQ(result.log_title, (box{512, 472, 1434, 492}));
    EXPECT_EQ(result.log, (box{512, 492, 1434, 708}));
}

TEST(HostLayout, TheListNeverTakesMoreThanHalf) {
    frame_metrics narrow = usual;
    narrow.width = 700;
    EXPECT_EQ(lay_out(narrow).instruments.right, 350);
}

TEST(HostLayout, NothingEverHasANegativeSize) {
    for (int width = 0; width < 1500; width += 7) {
        for (int height = 0; height < 900; height += 7) {
            frame_metrics metrics = usual;
            metrics.width = width;
            metrics.height = height;
            const frame_layout all = lay_out(metrics);
            for (const box& one : {all.instruments_title, all.instruments, all.blotter_title, all.blotter,
                                   all.log_title, all.log, all.bar}) {
                ASSERT_GE(one.width(), 0) << width << "x" << height;
                ASSERT_GE(one.height(), 0) << width << "x" << height;
            }
        }
    }
}

}  // namespace
}  // namespace host
