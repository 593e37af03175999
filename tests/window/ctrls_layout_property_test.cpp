// Every step of every slide, against a row that is told by adding up.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "tests/window/fake_fields.h"
#include "tests/window/fake_layout_panel.h"

namespace {

using namespace OV_OrderDeck;

struct gap {
    OD_UpdateEntity bit;
    int width;
    std::vector<int> items;
    // The field's own windows.
    std::vector<int> own;
};

const std::vector<gap>& gaps() {
    static const std::vector<gap> all = {
        {eODUE_FirstPrice, 70 + 18 + 5, {217, 216, 231, 220, 222, 228, 227, 225}, {214, 213}},
        {eODUE_SecondPrice, 64 + 18 + 5, {231, 220, 222, 228, 227, 225}, {217, 216}},
        {eODUE_GtdDate, 96 + 7, {227, 225}, {228}}};
    return all;
}

// What has to be seen: each window's target, how far it still is from it, and which fields wait.
class told_row {
public:
    explicit told_row(const window_tests::fake_layout_panel& panel)
        : m_panel(panel), m_start(panel.windows) {}

    void change(const gap& which, bool hide, bool animate) {
        if (hide == m_hidden.contains(which.bit)) {
            return;
        }
        for (const int item : which.items) {
            m_left[item] += hide ? -which.width : which.width;
        }
        if (hide) {
            m_hidden.insert(which.bit);
            m_waiting.erase(which.bit);
        } else {
            m_hidden.erase(which.bit);
            m_waiting.insert(which.bit);
        }
        const bool seen = std::any_of(m_left.begin(), m_left.end(), [&](const auto& each) {
            return each.second != 0 && m_panel.panel_visible && is_visible(each.first);
        });
        if (!animate || !seen) {
            end();
        }
    }

    void tick() {
        bool moving = false;
        for (auto& [item, left] : m_left) {
            left -= std::clamp(left, -10, 10);
            moving = moving || left != 0;
        }
        if (!moving) {
            end();
        }
    }

    // The windows that the slide under way moves, those that have come back to their place among them.
    std::size_t get_moved() const { return m_left.size(); }
    bool is_sliding() const {
        return std::any_of(m_left.begin(), m_left.end(), [](const auto& each) { return each.second != 0; });
    }
    bool is_visible(int item) const {
        return std::none_of(gaps().begin(), gaps().end(), [&](const gap& each) {
            return (m_hidden.contains(each.bit) || m_waiting.contains(each.bit)) && has(each.own, item);
        });
    }
    int x(int item) const {
        int place = m_start.at(item).x;
        for (const gap& each : gaps()) {
            place -= m_hidden.contains(each.bit) && has(each.items, item) ? each.width : 0;
        }
        const auto found = m_left.find(item);
        return found != m_left.end() ? place - found->second : place;
    }

private:
    static bool has(const std::vector<int>& items, int item) {
        return std::find(items.begin(), items.end(), item) != items.end();
    }
    void end() {
        m_left.clear();
        m_waiting.clear();
    }

    const window_tests::fake_layout_panel& m_panel;
    std::map<int, window_tests::fake_layout_panel::place> m_start;
    std::map<int, int> m_left;
    std::set<OD_UpdateEntity> m_hidden;
    std::set<OD_UpdateEntity> m_waiting;
};

class CtrlsLayoutProperty : public testing::Test {
protected:
    // A change of one field by a user or a program.
    void change() {
        const gap& which = gaps().at(random() % 3);
        field.hidden = random() % 2 == 0;
        const bool animate = random() % 8 != 0;
        reversed += row.is_sliding() ? 1 : 0;
        layout.Update(which.bit, field, animate);
        row.change(which, field.hidden, animate);
    }

    void tick() {
        ++ticks;
        const bool slides = row.is_sliding();
        const std::size_t moved = row.get_moved();
        layout.OnTimer(&layout);
        if (slides) {
            row.tick();
            EXPECT_EQ(panel.batches, std::vector<std::size_t>{moved}) << "all windows of a step in one batch";
            EXPECT_EQ(panel.announced, static_cast<int>(moved));
        } else {
            EXPECT_TRUE(panel.events.empty()) << "nothing slides";
        }
    }

    // At most one batch, and a timer only where there is none and somebody sees a slide.
    void expect_thrifty(bool had_timer) {
        EXPECT_LE(panel.batches.size(), 1U);
        const bool starts = panel.timers_started != 0;
        EXPECT_LE(panel.timers_started, 1);
        EXPECT_FALSE(starts && (had_timer || !panel.panel_visible));
        EXPECT_FALSE(starts && !panel.batches.empty()) << "a slide starts with its first tick";
    }

    void expect_told_row() {
        for (const auto& [item, window] : panel.windows) {
            EXPECT_EQ(row.x(item), window.x) << item;
            EXPECT_EQ(row.is_visible(item), window.visible) << item;
        }
        EXPECT_EQ(row.is_sliding(), panel.timer != nullptr);
    }

    window_tests::fake_layout_panel panel;
    window_tests::fake_field field;
    CCtrlsLayout layout{panel};
    told_row row{panel};
    std::mt19937 random{4711};
    unsigned reversed = 0;
    unsigned ticks = 0;
    unsigned unseen = 0;
};

TEST_F(CtrlsLayoutProperty, EveryStepOfEverySlideIsWhereItIsTold) {
    layout.Build();
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const bool had_timer = panel.timer != nullptr;
        panel.forget();
        if (random() % 16 == 0) {
            panel.panel_visible = !panel.panel_visible;
        }
        unseen += panel.panel_visible ? 0 : 1;
        if (random() % 4 != 0) {
            tick();
        } else {
            change();
        }
        expect_thrifty(had_timer);
        expect_told_row();
    }
    EXPECT_GT(reversed, 1000U) << "changes within slides are what this is about";
    EXPECT_GT(ticks, 10000U);
    EXPECT_GT(unseen, 5000U);
}

}  // namespace
