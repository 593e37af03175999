// The orders of the day, the newest on top.
#pragma once

#include "market/order.h"
#include "window/list_view.h"

namespace host {

class blotter_view {
public:
    blotter_view(HWND parent, int id);

    HWND handle() const { return m_list.handle(); }
    // The id of the selected order, or 0.
    int selected() const { return m_list.selected(); }

    // After a change of the list's size.
    void fit() { m_list.fit(); }

    // Shows a new order, or what became of one that is shown.
    void update(const order& one);

private:
    list_view m_list;
};

}  // namespace host
