#include "charting/orderdeck/src/window/RowScroll.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace OV_OrderDeck;

// Five fields of 100 with 10 between them from 20 on, Buy and Sell at 570 to 700.
class RowScroll : public testing::Test {
protected:
    row_view in(int width, int focus = CRowScroll::no_focus) {
        return scroll.Arrange({width, 4, 30}, fields, buttons, focus);
    }
    static std::vector<int> shown(const row_view& view) {
        std::vector<int> result;
        for (std::size_t i = 0; i < view.shown.size(); ++i) {
            if (view.shown[i]) {
                result.push_back(static_cast<int>(i));
            }
        }
        return result;
    }
    // Where a field's left edge stands.
    int left(const row_view& view, std::size_t field) const { return fields[field].left + view.fields_shift; }

    std::vector<row_extent> fields = {{20, 120}, {130, 230}, {240, 340}, {350, 450}, {460, 560}};
    row_extent buttons = {570, 700};
    CRowScroll scroll;
};

using fields_shown = std::vector<int>;

TEST_F(RowScroll, ARowThatFitsStaysAsItIs) {
    for (const int width : {700, 701, 2000}) {
        const row_view view = in(width, 4);
        EXPECT_TRUE(view.whole);
        EXPECT_EQ(view.fields_shift, 0);
        EXPECT_EQ(view.buttons_shift, 0);
        EXPECT_EQ(shown(view), (fields_shown{0, 1, 2, 3, 4}));
    }
}

TEST_F(RowScroll, ANarrowerWindowKeepsBuyAndSellAtItsEndAndTheArrowsBeforeThem) {
    const row_view view = in(699);
    EXPECT_FALSE(view.whole);
    EXPECT_EQ(buttons.right + view.buttons_shift, 695);
    EXPECT_EQ(view.arrows_left + 30 + 4, buttons.left + view.buttons_shift);
}

TEST_F(RowScroll, OnlyFieldsThatFitWholeAreShown) {
    // The arrows stand at 300 of 468: 468 - 4 - 130 - 4 - 30. The gap before them is 4 wide.
    EXPECT_EQ(shown(in(402)), (fields_shown{0, 1}));
    EXPECT_EQ(shown(in(401)), (fields_shown{0}));
    EXPECT_EQ(in(402).fields_shift, 0);
}

TEST_F(RowScroll, TheFieldWithTheFocusIsShownWhereverItStands) {
    for (int focus = 0; focus < 5; ++focus) {
        const row_view view = in(402, focus);
        EXPECT_TRUE(view.shown[static_cast<std::size_t>(focus)]) << focus;
        EXPECT_GE(left(view, static_cast<std::size_t>(focus)), 20);
    }
}

TEST_F(RowScroll, NoMoreIsScrolledThanTheFocusNeeds) {
    EXPECT_EQ(shown(in(402, 1)), (fields_shown{0, 1}));
    EXPECT_EQ(shown(in(402, 2)), (fields_shown{1, 2}));
    EXPECT_EQ(left(in(402, 2), 1), 20) << "the first that is shown stands where the first field stood";
    EXPECT_EQ(shown(in(402, 1)), (fields_shown{1, 2})) << "it is seen already";
    EXPECT_EQ(shown(in(402, 0)), (fields_shown{0, 1}));
}

TEST_F(RowScroll, WithoutAFocusTheRowStaysWhereItWasScrolledTo) {
    in(402, 3);
    EXPECT_EQ(shown(in(402)), (fields_shown{2, 3}));
}

TEST_F(RowScroll, ByHandItGoesFieldByFieldAndEndsAtBothEnds) {
    EXPECT_EQ(shown(in(402)), (fields_shown{0, 1}));
    const fields_shown expected[] = {{1, 2}, {2, 3}, {3, 4}, {3, 4}};
    for (const fields_shown& each : expected) {
        scroll.Scroll(1);
        EXPECT_EQ(shown(in(402)), each);
    }
    const fields_shown back[] = {{2, 3}, {1, 2}, {0, 1}, {0, 1}};
    for (const fields_shown& each : back) {
        scroll.Scroll(-1);
        EXPECT_EQ(shown(in(402)), each);
    }
}

TEST_F(RowScroll, AHiddenFieldTakesNoRoomAndNoStep) {
    fields[1].visible = false;
    for (std::size_t i = 2; i < fields.size(); ++i) {
        fields[i].left -= 110;
        fields[i].right -= 110;
    }
    buttons = {460, 590};
    EXPECT_EQ(shown(in(402)), (fields_shown{0, 2}));
    scroll.Scroll(1);
    EXPECT_EQ(shown(in(402)), (fields_shown{2, 3}));
    scroll.Scroll(-1);
    EXPECT_EQ(shown(in(402)), (fields_shown{0, 2}));
    EXPECT_EQ(shown(in(402, 1)), (fields_shown{0, 2})) << "what is hidden can't be scrolled to";
}

TEST_F(RowScroll, AFieldThatGoesWhileItIsTheFirstOneGivesItsPlaceToTheNext) {
    in(402, 2);
    fields[1].visible = false;
    EXPECT_EQ(shown(in(402)), (fields_shown{2, 3}));
}

TEST_F(RowScroll, ARoomierWindowShowsWhatIsBeforeInsteadOfAnEmptyEnd) {
    in(402, 4);
    EXPECT_EQ(shown(in(402)), (fields_shown{3, 4}));
    EXPECT_EQ(shown(in(512)), (fields_shown{2, 3, 4}));
    EXPECT_TRUE(in(700).whole);
    EXPECT_EQ(shown(in(402)), (fields_shown{0, 1})) << "a row that was whole begins at its beginning";
}

TEST_F(RowScroll, AWindowWithoutRoomForAFieldShowsBuyAndSellAlone) {
    const row_view view = in(180, 2);
    EXPECT_EQ(shown(view), fields_shown{});
    EXPECT_EQ(buttons.right + view.buttons_shift, 176);
    scroll.Scroll(1);
    EXPECT_EQ(shown(in(0)), fields_shown{});
}

TEST_F(RowScroll, WithNoFieldThereNothingIsShown) {
    for (row_extent& field : fields) {
        field.visible = false;
    }
    scroll.Scroll(1);
    EXPECT_EQ(shown(in(402, 2)), fields_shown{});
    scroll.Scroll(-1);
    EXPECT_EQ(shown(in(402)), fields_shown{});
}

// Whatever is done to a row: what is shown lies between the first field's place and the arrows, and a field
// with the focus is among it.
TEST(RowScrollProperty, HoldsForAnyRowInAnyOrderOfSizesFocusAndSteps) {
    std::mt19937 random(20260104);
    const auto number = [&](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    int narrow = 0;
    for (int round = 0; round < 400; ++round) {
        CRowScroll scroll;
        std::vector<row_extent> fields(9);
        for (int step = 0; step < 50; ++step) {
            int at = 7;
            for (std::size_t i = 0; i < fields.size(); ++i) {
                fields[i] = {at, at + number(20, 150), i == 0 || number(0, 3) != 0};
                at = fields[i].visible ? fields[i].right + number(0, 9) : at;
            }
            const row_extent buttons = {at, at + 140};
            const int width = number(380, 1200);
            const int focus = number(-1, 8);
            const int direction = number(-1, 1);
            if (direction != 0) {
                scroll.Scroll(direction);
            }
            const row_view view = scroll.Arrange({width, 4, 28}, fields, buttons, focus);
            EXPECT_EQ(view.whole, buttons.right <= width);
            if (view.whole) {
                continue;
            }
            ++narrow;
            EXPECT_EQ(buttons.right + view.buttons_shift, width - 4);
            for (std::size_t i = 0; i < fields.size(); ++i) {
                if (view.shown[i]) {
                    EXPECT_TRUE(fields[i].visible);
                    EXPECT_GE(fields[i].left + view.fields_shift, 7);
                    EXPECT_LE(fields[i].right + view.fields_shift, view.arrows_left - 4);
                }
            }
            if (focus >= 0 && fields[static_cast<std::size_t>(focus)].visible) {
                EXPECT_TRUE(view.shown[static_cast<std::size_t>(focus)]);
            }
        }
    }
    EXPECT_GT(narrow, 1000);
}

}  // namespace
