#include "unicomp/wtlcontrols/buttonst/ButtonFace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/diagnostics_recorder.h"
#include "unicomp/wtlcontrols/buttonst/Colours.h"

namespace {

using namespace WTLControls;

constexpr RECT client = {0, 0, 70, 36};
const button_colours buy = {{ButtonColour::Top, make_colour(192, 208, 241)},
                            {ButtonColour::Bottom, make_colour(160, 176, 203)}};

SButtonLook gradient_look() {
    SButtonLook look;
    look.flags = ButtonFlag::Gradient;
    return look;
}

std::vector<LONG> sides(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

TEST(ButtonFace, ThePartsStateIsThatOfTheFirstThatHolds) {
    using namespace ButtonState;
    EXPECT_EQ(themed_state(Disabled | Hot | Default, true), 4);
    EXPECT_EQ(themed_state(Hot | Default, true), 3);
    EXPECT_EQ(themed_state(Hot | Default, false), 2);
    EXPECT_EQ(themed_state(Default, false), 5);
    EXPECT_EQ(themed_state(0, false), 1);
}

TEST(ButtonFace, StateBitsStandWhereTheyAreRead) {
    EXPECT_EQ(ButtonState::Hot, 1u << 0);
    EXPECT_EQ(ButtonState::Disabled, 1u << 1);
    EXPECT_EQ(ButtonState::Default, 1u << 3);
    EXPECT_EQ(ButtonFlag::Content, 2u);
    EXPECT_EQ(ButtonFlag::Gradient, 4u);
    EXPECT_EQ(ButtonFlag::AutoRepeat, 16u);
    EXPECT_EQ(ButtonStyle::DropDown, 2u);
}

TEST(ButtonFace, HasNoGradientWithoutTheFlagOrWhenDisabled) {
    SButtonLook look = gradient_look();
    EXPECT_TRUE(gradient_face(look, client, buy));
    look.state = ButtonState::Disabled;
    EXPECT_FALSE(gradient_face(look, client, buy));
    look.state = 0;
    look.flags = ~ButtonFlag::Gradient;
    EXPECT_FALSE(gradient_face(look, client, buy));
}

TEST(ButtonFace, GoesFromTheFirstColourToTheSecond) {
    const auto face = gradient_face(gradient_look(), client, buy);
    EXPECT_EQ(face->top, make_colour(192, 208, 241));
    EXPECT_EQ(face->bottom, make_colour(160, 176, 203));
}

TEST(ButtonFace, IsFifteenDarkerInEachChannelWhenPressed) {
    SButtonLook look = gradient_look();
    look.pressed = true;
    const auto face = gradient_face(look, client, buy);
    EXPECT_EQ(face->top, make_colour(177, 193, 226));
    EXPECT_EQ(face->bottom, make_colour(145, 161, 188));
}

TEST(ButtonFace, InAVisualStyleIsARoundedRectangleWithALighterOutline) {
    SButtonLook look = gradient_look();
    look.themed = true;
    auto face = gradient_face(look, client, buy);
    EXPECT_EQ(sides(face->rect), (std::vector<LONG>{3, 3, 66, 32}));
    EXPECT_EQ(face->radius, 2);
    EXPECT_EQ(face->outline, make_colour(222, 238, 255));
    EXPECT_EQ(face->outline_alpha, 140);
    look.focused = true;
    face = gradient_face(look, client, buy);
    EXPECT_EQ(sides(face->rect), (std::vector<LONG>{3, 3, 66, 32})) << "the focus changes nothing";
    look.pressed = true;
    face = gradient_face(look, client, buy);
    EXPECT_EQ(face->outline, make_colour(207, 223, 255)) << "lighter than the darker colour";
}

TEST(ButtonFace, WithoutAVisualStyleIsAPlainRectangleThatLeavesTheFocusRoom) {
    SButtonLook look = gradient_look();
    auto face = gradient_face(look, client, buy);
    EXPECT_EQ(sides(face->rect), (std::vector<LONG>{1, 1, 69, 35}));
    EXPECT_EQ(face->radius, 0);
    look.focused = true;
    face = gradient_face(look, client, buy);
    EXPECT_EQ(sides(face->rect), (std::vector<LONG>{1, 1, 68, 34}));
}

TEST(ButtonFace, AMissingColourIsReportedByItsName) {
    diagnostics_recorder reports;
    EXPECT_TRUE(gradient_face(gradient_look(), client, {{ButtonColour::Bottom, 0}}));
    EXPECT_TRUE(gradient_face(gradient_look(), client, {{ButtonColour::Top, 0}}));
    ASSERT_EQ(reports.assertions().size(), 2u);
    EXPECT_EQ(reports.assertions()[0].description, L"0xFFFFFFFFL != c0");
    EXPECT_EQ(reports.assertions()[1].description, L"0xFFFFFFFFL != c1");
}

TEST(ButtonFace, AFaceWithoutAGradientAsksForNoColour) {
    diagnostics_recorder reports;
    SButtonLook look;
    EXPECT_FALSE(gradient_face(look, client, {}));
    EXPECT_TRUE(reports.assertions().empty());
}

class surface {
public:
    surface(int width, int height)
        : m_width(width), m_height(height), m_pixels(static_cast<std::size_t>(width * height), untouched) {}
    void draw(const SGradientFace& face) { draw_gradient({m_pixels.data(), m_width, m_height}, face); }
    std::uint32_t at(int x, int y) const { return m_pixels.at(static_cast<std::size_t>(y * m_width + x)); }

    static constexpr std::uint32_t untouched = 0xEEEEEEEE;

private:
    int m_width;
    int m_height;
    std::vector<std::uint32_t> m_pixels;
};

SGradientFace grey_face(RECT rect) {
    SGradientFace face;
    face.rect = rect;
    face.top = make_colour(100, 110, 120);
    face.bottom = make_colour(60, 70, 80);
    return face;
}

TEST(ButtonFace, IsDrawnFromTheTopColourToTheBottomColourWithBlueLowest) {
    surface drawn(4, 5);
    drawn.draw(grey_face({0, 0, 4, 5}));
    for (int x = 0; x < 4; ++x) {
        EXPECT_EQ(drawn.at(x, 0), 0x00646E78u);
        EXPECT_EQ(drawn.at(x, 2), 0x00505A64u);
        EXPECT_EQ(drawn.at(x, 4), 0x003C4650u);
    }
}

TEST(ButtonFace, LeavesWhatIsBesideIt) {
    surface drawn(6, 6);
    drawn.draw(grey_face({1, 2, 5, 4}));
    EXPECT_EQ(drawn.at(0, 2), surface::untouched);
    EXPECT_EQ(drawn.at(5, 2), surface::untouched);
    EXPECT_EQ(drawn.at(1, 1), surface::untouched);
    EXPECT_EQ(drawn.at(1, 4), surface::untouched);
    EXPECT_NE(drawn.at(1, 2), surface::untouched);
    EXPECT_NE(drawn.at(4, 3), surface::untouched);
}

TEST(ButtonFace, StaysOnASurfaceThatIsSmaller) {
    surface drawn(3, 3);
    drawn.draw(grey_face({-5, -5, 20, 20}));
    EXPECT_NE(drawn.at(0, 0), surface::untouched);
    EXPECT_NE(drawn.at(2, 2), surface::untouched);
    surface empty(3, 3);
    empty.draw(grey_face({3, 3, -1, -1}));
    EXPECT_EQ(empty.at(1, 1), surface::untouched);
}

TEST(ButtonFace, ARoundedOneHasCutCornersAndABlendedOutline) {
    surface drawn(6, 6);
    SGradientFace face = grey_face({0, 0, 6, 6});
    face.bottom = face.top;
    face.radius = 2;
    face.outline = make_colour(255, 255, 255);
    face.outline_alpha = 140;
    drawn.draw(face);
    for (const int x : {0, 5}) {
        for (const int y : {0, 5}) {
            EXPECT_EQ(drawn.at(x, y), surface::untouched);
        }
    }
    // 100 + 155 * 140 / 255, and so on.
    constexpr std::uint32_t edge = 185U << 16U | 190U << 8U | 194U;
    for (int i = 1; i < 5; ++i) {
        EXPECT_EQ(drawn.at(i, 0), edge);
        EXPECT_EQ(drawn.at(i, 5), edge);
        EXPECT_EQ(drawn.at(0, i), edge);
        EXPECT_EQ(drawn.at(5, i), edge);
        EXPECT_EQ(drawn.at(i, i), 0x00646E78u);
    }
}

TEST(ButtonFace, TheDropDownPartIsTheClientAreaFromTheSplitOn) {
    EXPECT_FALSE(is_drop_down_part(client, 54, {53, 10}));
    EXPECT_TRUE(is_drop_down_part(client, 54, {54, 10}));
    EXPECT_TRUE(is_drop_down_part(client, 54, {69, 35}));
    EXPECT_FALSE(is_drop_down_part(client, 54, {70, 35}));
    EXPECT_FALSE(is_drop_down_part(client, 54, {60, 36}));
    EXPECT_FALSE(is_drop_down_part(client, 54, {60, -1}));
}

}  // namespace
