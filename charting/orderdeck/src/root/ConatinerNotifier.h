#pragma once

#include <boost/core/noncopyable.hpp>

#include "platform/com.h"

namespace NonModalDialogsForContainer {

// Tells the window that contains the bar which window to treat as a non-modal dialog of its own. The
// pair stays registered until another takes its place or the object dies. The name is part of the
// vocabulary of the containers and keeps its spelling. Bar thread only.
class CConatinerNotifier : private boost::noncopyable {
public:
    // Sent to the container: wParam the bar window, lParam 1 to register and 0 to withdraw.
    static constexpr UINT Message = 1702;

    // Withdraws the pair that was registered before, if any, and registers the new one.
    void Register(HWND parent, HWND bar);

protected:
    CConatinerNotifier() = default;
    ~CConatinerNotifier();

private:
    void _withdraw();

    HWND m_parent = nullptr;
    HWND m_bar = nullptr;
    // Counts the registrations.
    unsigned m_turn = 0;
};

}  // namespace NonModalDialogsForContainer
