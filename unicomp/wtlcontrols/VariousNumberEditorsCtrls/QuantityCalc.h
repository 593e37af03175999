#pragma once

#include "unicomp/wtlcontrols/EditCommand/DrawnButton.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NaturalNumbersEditorCtrl.h"

namespace WTLControls::NumberEditors {

// A quantity from 1 to 1000000000, with a button that asks the host's calculator for one. F4 presses it.
// Lives on the edit's thread.
class CQuantityCalc final : public CNaturalNumbersEditorCtrl {
public:
    explicit CQuantityCalc(INumberEditorHost* host) : CNaturalNumbersEditorCtrl(host) {}
    ~CQuantityCalc() override;

    // Attaches to an edit and makes its spin and its button. False when the edit can't be subclassed.
    bool SubclassWindow(HWND hWnd);
    // The button's pictures, a strip of the module's resources.
    void put_Images(UINT strip);

    // The symbol's category.
    void put_Mode(LONG mode) { m_mode = mode; }
    LONG get_Mode() const { return m_mode; }
    HWND get_Button() const { return m_button.get_Hwnd(); }
    // Behind the text, as the edit is enabled or not.
    COLORREF get_BackColor() const { return m_background; }

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

protected:
    LONG GetStepMultiplier() const override { return quantity_step_multiplier(m_mode); }

private:
    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    frame::answer _on_enable(WPARAM wParam, LPARAM lParam);
    frame::answer _on_button_up(WPARAM wParam, LPARAM lParam);
    void _make_button();
    void _place_button() const;
    void OnButtonClicked();

    CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications m_button;
    HIMAGELIST m_images = nullptr;
    // Kept for whoever paints the edit; nothing here does.
    COLORREF m_background = 0;
    LONG m_mode = 0;
};

}  // namespace WTLControls::NumberEditors
