// A layout over a made-up row, without a screen.
#pragma once

#include <gtest/gtest.h>

#include "charting/orderdeck/src/window/CtrlsLayout.h"
#include "tests/window/fake_fields.h"
#include "tests/window/fake_layout_panel.h"

namespace window_tests {

// Offsets of the made-up row: 70 + 18 + 5, 64 + 18 + 5, 96 + 7.
inline constexpr int first_shift = 93;
inline constexpr int second_shift = 87;
inline constexpr int date_shift = 103;

class layout_test : public testing::Test {
protected:
    void SetUp() override { layout.Build(); }

    void put(OV_OrderDeck::OD_UpdateEntity bit, bool hidden, bool animate) {
        field.hidden = hidden;
        layout.Update(bit, field, animate);
    }

    int x(int item) const { return panel.windows.at(item).x; }
    bool visible(int item) const { return panel.windows.at(item).visible; }

    // Runs the timer until the layout stops it and gives the number of ticks.
    int run_slide() {
        int ticks = 0;
        while (panel.timer != nullptr) {
            layout.OnTimer(&layout);
            ++ticks;
        }
        return ticks;
    }

    fake_layout_panel panel;
    fake_field field;
    OV_OrderDeck::CCtrlsLayout layout{panel};
};

}  // namespace window_tests
