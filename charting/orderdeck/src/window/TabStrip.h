#pragma once

#include <windows.h>

#include <commctrl.h>

#include "platform/text.h"

namespace OV_OrderDeck {

// The tab strip of the bar: sorted tabs, each with a text, an image and an id. An index is a place from
// the left; none is -1. Lives on the bar's thread.
class CTabStrip {
public:
    void Attach(HWND strip) { m_hWnd = strip; }
    HWND get_Hwnd() const { return m_hWnd; }

    int get_Count() const;
    int get_Current() const;
    // 0 when there is no such tab.
    LONG get_Id(int index) const;
    LONG get_CurrentId() const { return get_Id(get_Current()); }
    CString get_Text(int index) const;
    int get_Image(int index) const;
    int Find(LONG id) const;

    // Puts a tab in its sorted place, before those of the same name. The names are compared with case.
    // Gives the index, -1 on failure.
    int Insert(const CString& name, LONG id, int image);
    bool Delete(int index) const;
    bool DeleteAll() const;
    // Tells nobody.
    void Select(int index) const;
    bool put_Image(int index, int image) const;

    // The tab at a client point, -1 beside the tabs.
    int HitTest(POINT at) const;
    // Where a tab's page belongs, in the strip's client area.
    RECT get_PageRect() const;
    void Repaint() const;

private:
    HWND m_hWnd = nullptr;
};

}  // namespace OV_OrderDeck
