// The row as its fields, in a bar without windows.
#include "charting/orderdeck/interface/ITab.h"
#include "charting/orderdeck/interface/IUnifyControl.h"
#include "diagnostics/BugSlayerUtil.h"
#include "tests/hostile/stage.h"
#include "tests/root/fake_bar.h"

namespace hostile {

namespace {

using namespace OV_OrderDeck;

class logic_stage final : public stage {
public:
    logic_stage(const test::fake_host& record, platform::headless_desktop& desktop)
        : m_parent(desktop.make_window(L"host")) {
        m_factory.host = record;
        m_factory.window = desktop.make_window();
        test::the_bar_factory = &m_factory;
    }
    ~logic_stage() override { test::the_bar_factory = nullptr; }

    HWND parent() override { return m_parent; }
    // The root alone keeps it.
    void adopt(HWND) override { m_factory.last.reset(); }
    void press_buy() override {
        with_field(eODUE_Buy, [](IUnifyControl& field) { field.Select(0); });
    }
    void choose_type(LONG category) override {
        with_field(eODUE_OrderType, [category](IUnifyControl& field) { field.Select(category); });
    }
    void confirm_symbol(const CString& text) override {
        with_symbol([&](ISymbolCtrl& field) { field.LookupByText(text, true, false); });
    }
    void leave_symbol(const CString& text) override {
        with_symbol([&](ISymbolCtrl& field) { field.LookupByText(text, false, true); });
    }
    void open_dialog() override {
        with_symbol([](ISymbolCtrl& field) { field.LookupWithDialog(); });
    }
    void calculate() override {}
    int bars_left() override {
        m_factory.last.reset();
        int left = 0;
        for (const auto& bar : m_factory.made) {
            left += bar.expired() ? 0 : 1;
        }
        return left;
    }

private:
    // As the panel does: what the field throws ends with the message, and the tab is held over it.
    template <class Action>
    void with_field(OD_UpdateEntity entity, Action action) {
        const boost::shared_ptr<test::fake_bar> bar =
            m_factory.made.empty() ? nullptr : m_factory.made.back().lock();
        const boost::shared_ptr<ITab> tab = bar ? bar->get_CurTab() : nullptr;
        if (tab) {
            BugSlayerUtil::guard(BS_HERE, [&] { action(*tab->get_Control(entity)); });
        }
    }
    template <class Action>
    void with_symbol(Action action) {
        with_field(eODUE_Symbol, [&](IUnifyControl& field) { action(dynamic_cast<ISymbolCtrl&>(field)); });
    }

    test::bar_factory m_factory;
    HWND m_parent;
};

}  // namespace

std::unique_ptr<stage> make_stage(const test::fake_host& record, platform::headless_desktop& desktop) {
    return std::make_unique<logic_stage>(record, desktop);
}

}  // namespace hostile
