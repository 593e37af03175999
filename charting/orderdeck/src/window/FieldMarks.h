#pragma once

#include <windows.h>

#include <vector>

namespace OV_OrderDeck {

// Frames round the fields of a panel that kept an order from going out. The panel draws them with its
// background. Lives on the panel's thread.
class CFieldMarks {
public:
    // A child of the panel, and the spin that stands at its edge, null for none.
    struct field {
        HWND window;
        HWND spin;
    };

    void Attach(HWND panel) { m_panel = panel; }

    // Marks these fields and no others.
    void Set(const std::vector<field>& fields);
    void Clear() { Set({}); }
    bool IsEmpty() const { return m_fields.empty(); }
    void Draw(HDC dc) const;

private:
    RECT _frame_of(const field& marked) const;
    void _invalidate() const;

    HWND m_panel = nullptr;
    std::vector<field> m_fields;
};

}  // namespace OV_OrderDeck
