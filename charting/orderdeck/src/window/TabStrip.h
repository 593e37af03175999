#pragma once

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "platform/text.h"
#include "platform/win32/frame/subclassed_window.h"

namespace OV_OrderDeck {

// The tab strip of the bar: sorted tabs, each with a text, an image and an id. An index is a place from
// the left; none is -1. Subclasses the window, to know at every time which tabs there are and which is
// current. Lives on the bar's thread; without its window it has no tabs.
class CTabStrip final : public frame::subclassed_window {
public:
    int get_Count() const;
    int get_Current() const;
    // 0 when there is no such tab. Asks no window.
    LONG get_Id(int index) const;
    // 0 when no tab is current. Asks no window.
    LONG get_CurrentId() const { return m_current_id; }
    // The user chose another tab: of that the strip tells its parent only.
    void OnSelChange() { m_current_id = get_Id(get_Current()); }
    CString get_Text(int index) const;
    int get_Image(int index) const;
    // Asks no window.
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

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT _insert(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // For one more id. False when memory is out.
    bool _make_room();

    // From the left.
    std::vector<LONG> m_ids;
    LONG m_current_id = 0;
};

}  // namespace OV_OrderDeck
