// What the dialogs of this application have in common.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <utility>
#include <vector>

namespace host {

class dialog {
public:
    virtual ~dialog() = default;

    // Runs the dialog of the template, modal on the owner. Gives IDOK or IDCANCEL.
    INT_PTR run(HWND owner, int template_id);

protected:
    virtual void on_init() = 0;
    // A button was pressed. Unless overridden OK and Cancel end the dialog.
    virtual void on_button(int id);
    // An edit's text changed, by the user or by a program.
    virtual void on_change(int) {}
    // A list's selection changed.
    virtual void on_select(int) {}

    HWND window() const { return m_window; }
    HWND item(int id) const { return GetDlgItem(m_window, id); }
    void end(INT_PTR result) { EndDialog(m_window, result); }

    std::string text(int id) const;
    void set_text(int id, const std::string& value);
    void enable(int id, bool usable) { EnableWindow(item(id), usable); }
    // Says what is wrong and puts the focus where it can be put right.
    void complain(const std::string& why, int id);

    // A list in rows; columns are title and width for 96 dots per inch.
    void add_columns(int id, const std::vector<std::pair<const char*, int>>& columns);
    void set_rows(int id, const std::vector<std::vector<std::string>>& rows);
    // -1 for none.
    int selected_row(int id) const;
    void select_row(int id, int row);

    void add_choices(int id, const std::vector<std::string>& choices, int selected);

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    INT_PTR handle(UINT message, WPARAM wparam, LPARAM lparam);

    HWND m_window = nullptr;
    // A list is being filled: what changes in it is nobody's choice.
    bool m_filling = false;
};

}  // namespace host
