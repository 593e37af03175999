// The editor of the quantity: a plain number while the user is in it, and a short one otherwise.
#pragma once

#include <functional>

#include "tests/monkey/world.h"

namespace monkey {

// "1.5K"
CString shown_quantity(LONG value);
// What the user types that is no quantity, or one in another spelling.
const std::vector<CString>& odd_quantities();

class quantity_model {
public:
    explicit quantity_model(std::function<void(const quantity_text&)> tell) : m_tell(std::move(tell)) {}

    // Where the panel starts: nothing is shown, and the lowest value counts.
    void reset();
    LONG value() const { return m_value; }
    const CString& text() const { return m_text; }

    void put_category(LONG category) { m_step = category == 2 ? 100 : 1; }
    // While the user is elsewhere, or in it.
    void put_value(LONG value);
    // Takes digits and leaves out the rest; nothing at all wipes the number out.
    void type(const CString& keys);
    void step(int direction);
    void enter();
    void leave();

private:
    bool valid() const;
    void write(const CString& text);
    void take();

    std::function<void(const quantity_text&)> m_tell;
    CString m_text;
    LONG m_value = 1;
    LONG m_step = 1;
    bool m_inside = false;
};

}  // namespace monkey
