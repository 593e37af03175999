#include "charting/orderdeck/src/root/ConatinerNotifier.h"

#include "diagnostics/BugSlayerUtil.h"
#include "platform/desktop.h"

namespace NonModalDialogsForContainer {
namespace {

void notify(HWND parent, HWND bar, LPARAM registered) {
    platform::port<platform::desktop>::get().send_message(parent, CConatinerNotifier::Message,
                                                          reinterpret_cast<WPARAM>(bar), registered);
}

}  // namespace

CConatinerNotifier::~CConatinerNotifier() {
    BugSlayerUtil::guard(BS_HERE, [this] { _withdraw(); });
}

// The container may make another bar when it is told of one: the later registration is the one that counts.
void CConatinerNotifier::Register(HWND parent, HWND bar) {
    const unsigned turn = ++m_turn;
    _withdraw();
    if (turn != m_turn) {
        return;
    }
    m_parent = parent;
    m_bar = bar;
    platform::desktop& desktop = platform::port<platform::desktop>::get();
    if (desktop.is_window(m_parent) && desktop.is_window(m_bar)) {
        notify(m_parent, m_bar, 1);
    }
}

void CConatinerNotifier::_withdraw() {
    if (m_parent != nullptr && m_bar != nullptr) {
        const unsigned turn = m_turn;
        notify(m_parent, m_bar, 0);
        if (turn != m_turn) {
            return;
        }
    }
    m_parent = nullptr;
    m_bar = nullptr;
}

}  // namespace NonModalDialogsForContainer
