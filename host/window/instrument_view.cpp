#include "window/instrument_view.h"

#include "market/price_text.h"

namespace host {
namespace {

enum columns { name, description, bid_size, bid, ask, ask_size };

constexpr COLORREF up = RGB(0, 128, 64);
constexpr COLORREF down = RGB(192, 32, 32);

int direction(double before, double now, int last) {
    return now > before ? 1 : now < before ? -1 : last;
}

}  // namespace

instrument_view::instrument_view(HWND parent, int id, const desk& paper)
    : m_list(parent, id,
             {{"Symbol", 104},
              {"Description", 156},
              {"Size", 42, true},
              {"Bid", 76, true},
              {"Ask", 76, true},
              {"Size", 42, true}}),
      m_desk(paper) {
    refresh();
}

void instrument_view::refresh() {
    int index = 0;
    for (const instrument& one : instruments()) {
        const quote& value = m_desk.get_quote(one.id);
        const auto [known, is_new] = m_moves.try_emplace(one.id);
        moves& last = known->second;
        if (is_new) {
            m_list.insert(index, one.id);
            last.last = value;
        }
        const moves next{value, direction(last.last.bid, value.bid, last.bid),
                         direction(last.last.ask, value.ask, last.ask)};
        const bool recoloured = next.bid != last.bid || next.ask != last.ask;
        last = next;
        m_list.set_row(index, {one.name, one.description, std::to_string(value.bid_size),
                               price_text(value.bid, one.scale), price_text(value.ask, one.scale),
                               std::to_string(value.ask_size)});
        if (recoloured) {
            ListView_RedrawItems(m_list.handle(), index, index);
        }
        ++index;
    }
}

LRESULT instrument_view::draw(NMLVCUSTOMDRAW& notice) const {
    switch (notice.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT:
            return CDRF_NOTIFYSUBITEMDRAW;
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM: {
            const moves& last = m_moves.at(static_cast<int>(notice.nmcd.lItemlParam));
            const int move = notice.iSubItem == bid ? last.bid : notice.iSubItem == ask ? last.ask : 0;
            notice.clrText = move > 0 ? up : move < 0 ? down : GetSysColor(COLOR_WINDOWTEXT);
            return CDRF_DODEFAULT;
        }
        default:
            return CDRF_DODEFAULT;
    }
}

}  // namespace host
