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
