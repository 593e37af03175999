#include "tests/gallery/gallery.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <set>

#include "tests/gallery/picture.h"
#include "tests/support/screen_scheme.h"

namespace {

using gallery::look;

// What readers with weak sight need of a text.
constexpr double least_contrast = 4.5;
constexpr UINT resolutions[] = {96, 120, 144, 192};

std::filesystem::path folder() {
    const std::filesystem::path path = ORDERDECK_GALLERY_FOLDER;
    std::filesystem::create_directories(path);
    return path;
}

void picture_of(const gallery::entry& entry, const gallery::state& state, look wanted, UINT dpi,
                const std::string& look_name) {
    const std::string file =
        entry.name + "-" + state.name + "-" + look_name + "-" + std::to_string(dpi) + ".png";
    SCOPED_TRACE(file);
    gallery::stage stage(wanted, dpi);
    const gallery::shown shown = entry.make(stage, state.name);
    ASSERT_TRUE(IsWindow(shown.window));
    gallery::pump();
    for (const HWND drawn : {stage.parent(), shown.window}) {
        RedrawWindow(drawn, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
    const gallery::picture picture = gallery::picture::of(shown.window);
    EXPECT_TRUE(picture.save((folder() / file).wstring()));
    EXPECT_GT(picture.colours(), 1u) << "the picture is empty";
    if (state.readable) {
        EXPECT_GE(picture.contrast(stage.scaled(4)), least_contrast);
        for (const gallery::face& face : shown.faces) {
            EXPECT_GE(gallery::contrast(face.text, face.ground), least_contrast);
        }
    }
}

void pictures_in(look wanted, const std::string& look_name) {
    ASSERT_FALSE(gallery::entry::all().empty());
    for (const gallery::entry* const entry : gallery::entry::all()) {
        for (const gallery::state& state : entry->states) {
            for (const UINT dpi : resolutions) {
                picture_of(*entry, state, wanted, dpi, look_name);
            }
        }
    }
}

TEST(Gallery, EveryStateHasAPictureInEveryLook) {
    ASSERT_TRUE(IsAppThemed());
    pictures_in(look::styled, "styled");
    screen_scheme::leave_visual_style();
    ASSERT_FALSE(IsAppThemed());
    pictures_in(look::classic, "classic");
    const screen_scheme::high_contrast colours;
    pictures_in(look::high_contrast, "contrast");
}

TEST(Gallery, ContrastIsThatOfTheReadersGuidelines) {
    EXPECT_DOUBLE_EQ(gallery::contrast(RGB(0, 0, 0), RGB(255, 255, 255)), 21.0);
    EXPECT_DOUBLE_EQ(gallery::contrast(RGB(9, 9, 9), RGB(9, 9, 9)), 1.0);
    EXPECT_NEAR(gallery::contrast(RGB(119, 119, 119), RGB(255, 255, 255)), 4.48, 0.005);
}

}  // namespace
