// What a user does to the bar, with a real row of windows or without any.
#pragma once

#include <memory>

#include "OrderDeck.h"
#include "platform/headless_desktop.h"
#include "tests/support/host_record.h"

namespace hostile {

class stage {
public:
    virtual ~stage() = default;

    // Where bars are made.
    virtual HWND parent() = 0;
    // The root has made a bar.
    virtual void adopt(HWND bar) = 0;
    // All of these act on the row as it is shown, and do nothing where there is none.
    virtual void press_buy() = 0;
    virtual void choose_type(LONG category) = 0;
    virtual void confirm_symbol(const CString& text) = 0;
    virtual void leave_symbol(const CString& text) = 0;
    virtual void open_dialog() = 0;
    virtual void calculate() = 0;
    // Bars that are not gone yet.
    virtual int bars_left() = 0;
};

std::unique_ptr<stage> make_stage(const test::fake_host& record, platform::headless_desktop& desktop);

}  // namespace hostile
