// Whether handles of the system are left behind. Windows only.
#pragma once

#include <windows.h>

#include <algorithm>
#include <vector>

// An object that is left over keeps its slot in the system's table, so later ones get slots further up.
// The highest slot that new objects get, of GDI and of USER.
struct highest_slots {
    int gdi = 0;
    int user = 0;

    highest_slots() {
        constexpr int probes = 64;
        std::vector<HBRUSH> brushes;
        std::vector<HMENU> menus;
        for (int i = 0; i < probes; ++i) {
            brushes.push_back(::CreateSolidBrush(RGB(1, 2, i)));
            gdi = std::max(gdi, slot_of(brushes.back()));
            menus.push_back(::CreateMenu());
            user = std::max(user, slot_of(menus.back()));
        }
        std::for_each(brushes.begin(), brushes.end(), [](HBRUSH brush) { ::DeleteObject(brush); });
        std::for_each(menus.begin(), menus.end(), [](HMENU menu) { ::DestroyMenu(menu); });
    }

private:
    static int slot_of(const void* handle) {
        return static_cast<int>(reinterpret_cast<ULONG_PTR>(handle) & 0xFFFFU);
    }
};

// What rounds of making and destroying leave: by how many slots of each kind the tables have grown.
struct left_behind {
    static constexpr int rounds = 400;
    // One object left by every tenth round shows, although some slots further down were free.
    static constexpr int shows = rounds / 20;

    int gdi = 0;
    int user = 0;

    bool nothing() const { return gdi < shows && user < shows; }

    // Between rounds the pump is let handle what is left of messages.
    template <class Round, class Pump>
    static left_behind of(Round&& round, Pump&& pump) {
        // What the system makes once and keeps is made first.
        for (int i = 0; i < 20; ++i) {
            round();
        }
        pump();
        const highest_slots before;
        for (int i = 0; i < rounds; ++i) {
            round();
            if (i % 100 == 0) {
                pump();
            }
        }
        pump();
        const highest_slots after;
        return {after.gdi - before.gdi, after.user - before.user};
    }
};
