#include "window/quantity_dialog.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "market/lot_calculator.h"
#include "window/dialog.h"
#include "window/resource.h"

namespace host {
namespace {

class quantity_dialog final : public dialog {
public:
    explicit quantity_dialog(LONG category) : m_category(category) {}
    ~quantity_dialog() override {
        if (m_large != nullptr) {
            DeleteObject(m_large);
        }
    }

    LONG quantity() const { return m_bought ? m_bought->quantity : 0; }

private:
    void on_init() override {
        SendDlgItemMessageW(window(), IDC_LOT_SPIN, UDM_SETRANGE32, 1, most_quantity);
        UDACCEL lots{0, static_cast<UINT>(lot_size(m_category))};
        SendDlgItemMessageW(window(), IDC_LOT_SPIN, UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&lots));
        SetDlgItemInt(window(), IDC_LOT, static_cast<UINT>(lot_size(m_category)), FALSE);
        make_result_large();
        m_ready = true;
        update();
    }

    void on_change(int) override {
        if (m_ready) {
            update();
        }
    }

    void make_result_large() {
        LOGFONTW face{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window(), WM_GETFONT, 0, 0)), sizeof(face), &face);
        face.lfHeight = face.lfHeight * 3 / 2;
        face.lfWeight = FW_BOLD;
        m_large = CreateFontIndirectW(&face);
        SendDlgItemMessageW(window(), IDC_RESULT, WM_SETFONT, reinterpret_cast<WPARAM>(m_large), TRUE);
    }

    void update() {
        const double typed = read_amount(text(IDC_LOT)).value_or(0.0);
        const int lot = static_cast<int>(std::min<double>(typed, most_quantity));
        m_bought = buy_lots(read_amount(text(IDC_MONEY)).value_or(0.0),
                            read_amount(text(IDC_PRICE)).value_or(0.0), lot);
        const bool enough = m_bought && m_bought->quantity > 0;
        set_text(IDC_RESULT, enough ? quantity_text(m_bought->quantity) : "\xE2\x80\x93");
        set_text(IDC_RESULT_DETAIL, describe(m_bought, lot));
        enable(IDOK, enough);
    }

    LONG m_category;
    // The fields are filled in.
    bool m_ready = false;
    std::optional<purchase> m_bought;
    HFONT m_large = nullptr;
};

}  // namespace

std::optional<LONG> calculate_quantity(HWND owner, LONG category) {
    quantity_dialog calculator(category);
    if (calculator.run(GetAncestor(owner, GA_ROOT), IDD_QUANTITY) != IDOK) {
        return std::nullopt;
    }
    return calculator.quantity();
}

}  // namespace host
