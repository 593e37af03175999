#pragma once

#include <array>
#include <boost/shared_ptr.hpp>
#include <limits>
#include <optional>

#include "charting/orderdeck/interface/ITab.h"
#include "charting/orderdeck/src/window/AskBidButtonImpl.h"
#include "charting/orderdeck/src/window/CtrlsLayout.h"
#include "charting/orderdeck/src/window/FieldMarks.h"
#include "charting/orderdeck/src/window/LayoutPanel.h"
#include "charting/orderdeck/src/window/PriceEdit.h"
#include "charting/orderdeck/src/window/RowEyes.h"
#include "platform/win32/frame/accessible_name.h"
#include "platform/win32/frame/balloon_tips.h"
#include "platform/win32/frame/dialog.h"
#include "unicomp/wtlcontrols/ActualCalendar/GTDCalendar.h"
#include "unicomp/wtlcontrols/EditCommand/EditCommand.h"
#include "unicomp/wtlcontrols/EditCommand/IEditCommandSink2.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/INumberEditorHost.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/QuantityCalc.h"

namespace OV_OrderDeck {

class COrderDeckWindow;

// The order row on the screen. It holds nothing of an order: it shows the fields of the bar's current tab
// and hands them what the user does, so one panel serves all tabs. Lives on the bar's thread.
class CProfileTabWindow final : public WTLControls::IEditCommandSink2,
                                public WTLControls::NumberEditors::INumberEditorHost,
                                public WTLControls::IButtonPressSink,
                                public frame::dialog {
public:
    // The bar is not owned. Throws _com_error (E_POINTER) for a null one.
    explicit CProfileTabWindow(COrderDeckWindow* bar);
    ~CProfileTabWindow();

    // False when there is no window.
    bool Create(HWND parent);
    HWND get_Hwnd() const { return m_hWnd; }
    // The window that shows a field, the edit for a price. Throws std::out_of_range.
    HWND get_Window(OD_UpdateEntity entity) const;
    // The current tab's field, empty without a tab.
    boost::shared_ptr<IUnifyControl> get_Control(OD_UpdateEntity entity) const;
    frame::balloon_tips& get_Tips() { return m_tips; }
    const WTLControls::CGTDCalendar& get_Calendar() const { return m_calendar; }

    // Brings the window of one field up to date. bNoAnimation: what comes and goes does so at once.
    // bKeepQuantity: a symbol of another category leaves the quantity. Throws _com_error.
    void Update(OD_UpdateEntity entity, bool bNoAnimation, bool bKeepQuantity);

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

    void OnButtonPressed(LONG id) override;
    void OnEditSetFocus(LONG id) override;
    void OnEditEnd(LONG id, bool accepted) override;
    void OnEditKillFocus(LONG id) override;

    void OnFormatChange(int id, WTLControls::NumberEditors::eFormats format) override;
    void OnStringChanged(int id, const _bstr_t& text) override;
    bool UsesDisplayText(int) override { return true; }
    CString GetDisplayText(double value) override;

    void OnPressBegins(HWND button, bool byKey) override;
    void OnPressEnds(HWND button, bool clicks) override;

private:
    frame::answer _dispatch_command(WPARAM wParam);
    frame::answer _dispatch_notify(const NMHDR& notice);

    frame::answer OnInitDialog();
    frame::answer OnTabRClick(POINT point);
    frame::answer OnEraseBackground(HDC dc);
    frame::answer OnTimer(UINT_PTR id);
    frame::answer OnCBChange(int id);
    frame::answer OnBnClicked(int id);
    frame::answer OnUpdateEdit(int id);
    frame::answer OnDateTimeChange(const NMHDR& notice);
    frame::answer OnDeltaSpinChanged(const NMHDR& notice);

    void _init_trade_buttons();
    void _init_prices();
    void _init_combo_heights();
    void _init_theme();
    void _init_names();

    // What the row showed when the press of a button began, or shows now when another program sent the click.
    // A press that was given up counts for nothing: the row may have changed since.
    CRowSight _take_sight(OD_UpdateEntity button);
    void _press(OD_UpdateEntity button, const boost::shared_ptr<IUnifyControl>& field);
    void _show_not_sent(OD_UpdateEntity button, const row_differences& differences);
    // The user did something: what a press that sent nothing left on the screen goes.
    void _on_input();

    void _update_text(HWND window, IUnifyControl& field);
    void _update_lookup(HWND window, IUnifyControl& field, bool bKeepQuantity);
    void _update_combo_box_ctrl(HWND window, IUnifyControl& field);
    void _update_quantity_ctrl(IUnifyControl& field);
    void _update_price(OD_UpdateEntity entity, HWND window, IUnifyControl& field);
    void _update_date_time_picker_ctrl(HWND window, IUnifyControl& field);
    void _update_ask_bid(IUnifyControl& field);

    // The symbol field; empty without a tab, which is reported.
    boost::shared_ptr<ISymbolCtrl> _symbol_field() const;
    void _lookup_symbol(bool bAskConnect, bool bQuiet);
    void _show_symbol();

    COrderDeckWindow* m_pBar;
    frame::balloon_tips m_tips;
    details::CPriceEdit m_first_price;
    details::CPriceEdit m_second_price;
    WTLControls::NumberEditors::CQuantityCalc m_quantity;
    // Of the symbol last seen; no category is this one, so the first symbol sets the quantity.
    LONG m_lastCategory = std::numeric_limits<LONG>::min();
    WTLControls::CEditCommandCtrlWnd2 m_symbol;
    WTLControls::CButtonSTForBuyAction m_buy;
    WTLControls::CButtonSTForSellAction m_sell;
    AskBidButtonImpl m_ask_bid;
    CLayoutPanel m_layout_panel;
    CCtrlsLayout m_layout{m_layout_panel};
    WTLControls::CGTDCalendar m_calendar;
    // Of the edits, which have no labels.
    std::array<frame::accessible_name, 8> m_names;
    // A press of Buy or Sell began: the button and what the row showed.
    struct press {
        OD_UpdateEntity button;
        CRowSight sight;
        // The button has been released, and its click is on the way.
        bool released = false;
    };
    CRowEyes m_eyes;
    std::optional<press> m_press;
    CFieldMarks m_marks;
    // The tab that the marks belong to, for comparing only.
    const ITab* m_marked_tab = nullptr;
    // The balloon and the marks of a press that sent nothing are on the screen.
    bool m_bNotSentShown = false;
    // The background is being drawn by the system, which asks the panel first.
    bool m_bErasing = false;
    // A symbol action runs: the dialog that it opens takes the focus, which must not start another.
    bool m_bInSymbolAction = false;
    // The panel itself writes a window's text: the change notice that comes of it is not the user's.
    bool m_bSettingText = false;
};

}  // namespace OV_OrderDeck
