// The windows of a panel as the layout sees them, without a screen.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "charting/orderdeck/src/window/CtrlsLayout.h"

namespace window_tests {

class fake_layout_panel final : public OV_OrderDeck::ILayoutPanel {
public:
    struct place {
        int x;
        int y;
        int width;
        bool visible = true;
    };

    // Places and widths are those of the row, in made-up pixels.
    std::map<int, place> windows = {{203, {10, 11, 100}}, {206, {120, 11, 72}}, {209, {200, 11, 80}},
                                    {214, {290, 11, 70}}, {213, {360, 11, 18}}, {217, {383, 11, 64}},
                                    {216, {447, 11, 18}}, {231, {470, 12, 84}}, {220, {560, 11, 102}},
                                    {222, {668, 11, 55}}, {228, {730, 11, 96}}, {225, {836, 5, 66}},
                                    {227, {907, 5, 66}}};
    bool panel_visible = true;
    bool fail_begin = false;
    int fail_move_after = -1;
    bool fail_end = false;

    int timers_started = 0;
    int timers_stopped = 0;
    const void* timer = nullptr;
    UINT period = 0;
    // Windows moved by each batch that was ended.
    std::vector<std::size_t> batches;
    // What was asked of the windows, in order.
    std::vector<std::string> events;

    HWND get_Item(int item) override { return reinterpret_cast<HWND>(static_cast<std::intptr_t>(item)); }
    RECT get_ItemRect(HWND window) override {
        const auto& at = of(window);
        return {at.x, at.y, at.x + at.width, at.y + 20};
    }
    bool IsItemVisible(HWND window) override { return panel_visible && of(window).visible; }
    void ShowItem(HWND window, bool visible) override {
        of(window).visible = visible;
        note(visible ? "show " : "hide ", item_of(window));
    }
    void StartTimer(const void* id, UINT milliseconds) override {
        ++timers_started;
        note("timer ", static_cast<int>(milliseconds));
        timer = id;
        period = milliseconds;
    }
    void StopTimer(const void* id) override {
        ++timers_stopped;
        events.emplace_back("stop");
        if (timer == id) {
            timer = nullptr;
        }
    }
    void* BeginMoves(int count) override {
        announced = count;
        note("begin ", count);
        m_batch.clear();
        return fail_begin ? nullptr : &m_batch;
    }
    void* MoveItem(void* batch, HWND window, int x, int y) override {
        if (fail_move_after >= 0 && static_cast<int>(m_batch.size()) >= fail_move_after) {
            return nullptr;
        }
        m_batch.push_back({window, x, y});
        return batch;
    }
    bool EndMoves(void*) override {
        note("end ", static_cast<int>(m_batch.size()));
        batches.push_back(m_batch.size());
        for (const auto& each : m_batch) {
            of(each.moved).x = each.x;
            of(each.moved).y = each.y;
        }
        return !fail_end;
    }

    void Repaint() override {
        events.emplace_back("repaint");
        for (const auto& [item, window] : windows) {
            visible_at_repaint[item] = window.visible;
        }
    }

    // Starts the counts and notes anew; windows and timer stay.
    void forget() {
        timers_started = 0;
        timers_stopped = 0;
        announced = -1;
        batches.clear();
        events.clear();
    }

    // As it was when the panel was last drawn anew; empty before.
    std::map<int, bool> visible_at_repaint;
    int announced = -1;

private:
    struct move {
        HWND moved;
        int x;
        int y;
    };

    static int item_of(HWND window) { return static_cast<int>(reinterpret_cast<std::intptr_t>(window)); }
    place& of(HWND window) { return windows.at(item_of(window)); }
    void note(const char* what, int number) { events.push_back(what + std::to_string(number)); }

    std::vector<move> m_batch;
};

}  // namespace window_tests
