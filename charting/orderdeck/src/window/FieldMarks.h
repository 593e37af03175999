#pragma once

#include <windows.h>

#include <vector>

namespace OV_OrderDeck {

// Frames round the fields of a panel that kept an order from going out. The panel draws them with its
// background. Lives on the panel's thread.
class CFieldMarks {
public:
    void Attach(HWND panel) { m_panel = panel; }

    // Marks these windows, children of the panel, and no others.
    void Set(const std::vector<HWND>& fields);
    void Clear() { Set({}); }
    bool IsEmpty() const { return m_fields.empty(); }
    void Draw(HDC dc) const;

private:
    RECT _frame_of(HWND field) const;
    void _invalidate() const;

    HWND m_panel = nullptr;
    std::vector<HWND> m_fields;
};

}  // namespace OV_OrderDeck
