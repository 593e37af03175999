#pragma once

#include <memory>

#include "platform/win32/frame/subclassed_window.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/EditBalloon.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditor.h"

namespace WTLControls::NumberEditors {

// An edit for a number, with a spin inside it: what CNumberEditor decides, on the screen. Its parent
// reflects its notices. Lives on the edit's thread.
class CNumberEditCtrl : public frame::subclassed_window, private IEditorWindow {
public:
    // Not owned, outlives the edit; may be null.
    explicit CNumberEditCtrl(INumberEditorHost* host) : m_editor(*this, host) {}
    virtual ~CNumberEditCtrl() = default;

    // Attaches to an edit and makes its spin. False when the window can't be subclassed.
    bool SubclassWindow(HWND hWnd);

    void SetParams(double step, double min, double max, EEditType type);
    void SetValue(double value) { m_editor.SetValue(value); }
    double GetValue() const { return m_editor.GetValue(); }

    CNumberEditor& get_Editor() { return m_editor; }
    HWND get_Spin() const { return m_spin; }
    const CEditBalloon& get_Balloon() const { return m_balloon; }

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

protected:
    // How many steps one spin is.
    virtual LONG GetStepMultiplier() const { return 1; }
    // Makes the spin and sets the edit's style.
    virtual void Init();

    // The message is one after which the edit may have been drawn over its children.
    static bool DrawsOverChildren(UINT uMsg);
    // Has a child drawn again; nothing for none.
    static void Invalidate(HWND child);
    void AddStyle(LONG_PTR style) const;

    // The edit takes digits only.
    bool m_digits_only = false;

private:
    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    frame::answer _on_notice(WPARAM wParam, LPARAM lParam);
    frame::answer _on_spin(const NMHDR& notice);
    frame::answer _on_default(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void _on_key(WPARAM key);
    void _widen_spin(int size) const;

    bool Exists() const override { return ::IsWindow(m_hWnd) != FALSE; }
    bool IsVisible() const override { return ::IsWindowVisible(m_hWnd) != FALSE; }
    LONG get_ControlId() const override { return ::GetDlgCtrlID(m_hWnd); }
    CString get_Text() const override;
    void put_Text(const CString& text) override { ::SetWindowTextW(m_hWnd, text.c_str()); }
    void get_Selection(LONG& from, LONG& to) const override;
    void put_Selection(LONG from, LONG to) override;
    void MoveCaretToEnd() override;
    void StartCaretTimer() override;
    void TakeFocus() override { ::SetFocus(m_hWnd); }
    void Beep(UINT icon) override { ::MessageBeep(icon); }
    void ShowBox(const CString& title, const CString& text, UINT icon) override;
    void ShowBalloon(const CString& title, const CString& text, UINT icon) override;
    void HideBalloon() override { m_balloon.Hide(m_hWnd); }

    CNumberEditor m_editor;
    HWND m_spin = nullptr;
    CEditBalloon m_balloon;
};

// The spin and, in a CQuantityCalc, the button share this id on purpose: the one is known by its
// notices, the other by its commands.
inline constexpr int editor_child_id = 10003;

}  // namespace WTLControls::NumberEditors
