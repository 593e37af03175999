// The list of instruments with their quotes.
#pragma once

#include <map>

#include "market/desk.h"
#include "window/list_view.h"

namespace host {

class instrument_view {
public:
    instrument_view(HWND parent, int id, const desk& paper);

    HWND handle() const { return m_list.handle(); }
    // The id of the selected instrument, or 0.
    int selected() const { return m_list.selected(); }

    // Shows the quotes as they stand now, and instruments that joined since at the end.
    void refresh();

    // Colours a bid or an ask by its last move; the result of NM_CUSTOMDRAW.
    LRESULT draw(NMLVCUSTOMDRAW& notice) const;

private:
    // -1, 0 and 1: the last move of bid and ask.
    struct moves {
        quote last;
        int bid = 0;
        int ask = 0;
    };

    list_view m_list;
    const desk& m_desk;
    std::map<int, moves> m_moves;
};

}  // namespace host
