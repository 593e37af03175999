#include "window/profile_editor_dialog.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "com/text.h"
#include "window/dialog.h"
#include "window/resource.h"

namespace host {
namespace {

std::string state_text(ETM_ConnectionChanged state) {
    return state == eTM_CC_Connected    ? "Connected"
           : state == eTM_CC_Connecting ? "Connecting"
                                        : "Disconnected";
}

class profile_editor_dialog final : public dialog {
public:
    profile_editor_dialog(profiles& all, std::function<bool(HWND, const profile&)> may_remove)
        : m_all(all), m_may_remove(std::move(may_remove)) {}

private:
    void on_init() override {
        add_columns(IDC_PROFILES, {{"Name", 150}, {"Broker", 164}, {"State", 90}});
        add_choices(IDC_PLUGIN, plugins(), 0);
        SendDlgItemMessageW(window(), IDC_PROFILE_NAME, EM_SETLIMITTEXT, 60, 0);
        show({});
    }

    void on_select(int) override {
        const profile* const one = selected();
        if (one != nullptr) {
            set_text(IDC_PROFILE_NAME, one->shared().name);
        }
        enable_buttons();
    }

    void on_button(int id) override {
        const profile* const one = selected();
        // By value: the profile may go.
        const std::string outer_id = one == nullptr ? std::string() : one->shared().outer_id;
        switch (id) {
            case IDC_ADD:
                add();
                break;
            case IDC_RENAME:
                rename(outer_id);
                break;
            case IDC_REMOVE:
                if (one != nullptr && m_may_remove(window(), *one)) {
                    m_all.remove(outer_id);
                    set_text(IDC_PROFILE_NAME, "");
                    show({});
                }
                break;
            case IDC_REMOVE_ALL:
                remove_all();
                break;
            case IDC_MOVE_UP:
            case IDC_MOVE_DOWN:
                m_all.move(outer_id, id == IDC_MOVE_UP ? -1 : 1);
                show(outer_id);
                break;
            case IDC_RELOAD:
                m_all.reload();
                show(outer_id);
                break;
            default:
                dialog::on_button(id);
        }
    }

    void add() {
        const auto chosen = static_cast<std::size_t>(SendMessageW(item(IDC_PLUGIN), CB_GETCURSEL, 0, 0));
        _bstr_t plugin(to_wide(plugins().at(chosen)).c_str());
        _bstr_t name(to_wide(text(IDC_PROFILE_NAME)).c_str());
        m_all.Add(plugin.GetBSTR(), name.GetBSTR());
        show(m_all.items().back()->shared().outer_id);
    }

    // All or none: who keeps the orders of one profile keeps the others, too.
    void remove_all() {
        const std::wstring question =
            L"Remove all profiles (" + std::to_wstring(m_all.items().size()) + L")?";
        if (MessageBoxW(window(), question.c_str(), L"OrderDeck Host",
                        MB_YESNO | MB_DEFBUTTON2 | MB_ICONWARNING) != IDYES) {
            return;
        }
        // Copies: while the user is asked, profiles may change.
        const std::vector<ref<profile>> all = m_all.items();
        const bool may = std::ranges::all_of(
            all, [this](const ref<profile>& one) { return m_may_remove(window(), *one); });
        if (may) {
            m_all.remove_all();
            set_text(IDC_PROFILE_NAME, "");
            show({});
        }
    }

    void rename(const std::string& outer_id) {
        const std::string name = text(IDC_PROFILE_NAME);
        if (!m_all.rename(outer_id, name)) {
            complain(name.empty() ? "A profile wants a name." : "Another profile has this name.",
                     IDC_PROFILE_NAME);
            return;
        }
        show(outer_id);
    }

    void show(const std::string& selected_id) {
        std::vector<std::vector<std::string>> rows;
        int row = -1;
        for (const ref<profile>& one : m_all.items()) {
            if (one->shared().outer_id == selected_id) {
                row = static_cast<int>(rows.size());
            }
            rows.push_back({one->shared().name, one->shared().plugin, state_text(one->state())});
        }
        set_rows(IDC_PROFILES, rows);
        if (row >= 0) {
            select_row(IDC_PROFILES, row);
        }
        enable_buttons();
    }

    void enable_buttons() {
        const int row = selected_row(IDC_PROFILES);
        const HWND focus = GetFocus();
        enable(IDC_RENAME, row >= 0);
        enable(IDC_REMOVE, row >= 0);
        enable(IDC_REMOVE_ALL, !m_all.items().empty());
        enable(IDC_MOVE_UP, row > 0);
        enable(IDC_MOVE_DOWN, row >= 0 && row + 1 < static_cast<int>(m_all.items().size()));
        if (focus != nullptr && IsWindowEnabled(focus) == FALSE) {
            // The keyboard would be lost in a disabled button.
            SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item(IDC_PROFILES)), TRUE);
        }
    }

    const profile* selected() const {
        const int row = selected_row(IDC_PROFILES);
        return row < 0 ? nullptr : m_all.items().at(static_cast<std::size_t>(row)).get();
    }

    profiles& m_all;
    std::function<bool(HWND, const profile&)> m_may_remove;
};

}  // namespace

void show_profile_editor(HWND owner, profiles& all,
                         std::function<bool(HWND owner, const profile& one)> may_remove) {
    profile_editor_dialog(all, std::move(may_remove)).run(owner, IDD_PROFILES);
}

}  // namespace host
