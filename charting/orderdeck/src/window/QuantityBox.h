#pragma once

#include "platform/text.h"
#include "platform/win32/frame/subclassed_window.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/INumberEditorHost.h"

namespace OV_OrderDeck {

// The quantity on the panel: an edit for digits that tells its host every change of its text. Without the
// focus it shows the host's abbreviated text. Lives on the panel's thread.
class CQuantityBox final : public frame::subclassed_window {
public:
    // The host is not owned and outlives the box.
    CQuantityBox(WTLControls::NumberEditors::INumberEditorHost& host, int id) : m_host(&host), m_id(id) {}

    // The number in the text, the last one when there is no text.
    double GetValue() const;
    // Shows the value and tells the host.
    void SetValue(double value);

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT _after(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void _accept();
    void _show(bool focused);

    WTLControls::NumberEditors::INumberEditorHost* m_host;
    int m_id;
    // Last accepted.
    double m_value = 0.0;
    CString m_text;
    // The box itself writes the text: the display form is nothing that the user entered.
    bool m_showing = false;
};

}  // namespace OV_OrderDeck
