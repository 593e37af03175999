// A press of Buy up to the host's order, and what of it the gate takes: reading what the row shows, and
// holding the order against it. Natively there is no row to read, and what is measured is the logic.
#include <boost/make_shared.hpp>

#include "benchmarks/bar_of_benchmark.h"
#include "benchmarks/stopwatch.h"
#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "tests/support/fake_tab_ctrl.h"
#include "tests/support/field_sight.h"

namespace benchmarks {

double nanoseconds_of_reading_the_row(bar_of_benchmark& bar);
double nanoseconds_of_pressing(bar_of_benchmark& bar);
bool has_screen();

namespace {

using namespace OV_OrderDeck;

// One connected tab with a limit order in a bar without windows.
class row {
public:
    explicit row(host_of_benchmark& host)
        : m_record(host.record),
          m_bar(boost::make_shared<test::FakeTabCtrl>(host.record)),
          m_tab(boost::make_shared<CTab>(platform::make_com<CProfileWrap>(host.profiles.at(0).get()))) {
        m_tab->SetContent(m_bar);
        m_bar->AddTab(m_tab, true);
        host.profiles.at(0)->fire_state(eTM_CC_Connected);
        test::symbol symbol;
        symbol.name = L"CENTS";
        symbol.price_scale_code = 2;
        OD_SSymbolInfo info{};
        symbol.write(info);
        m_tab->put_SymbolInfo(info);
        test::free_symbol(info);
        m_tab->get_Control(eODUE_OrderType)->Select(eMTPA_OC_Limit);
        m_tab->get_Control(eODUE_SecondPrice)->put_Value(_variant_t(L"101.25"));
    }
    ~row() { m_bar->RemoveAllTabs(); }

    double without_sight() {
        const auto buy = m_tab->get_Control(eODUE_Buy);
        return nanoseconds_of_one(1, [&] {
            buy->Select(0);
            m_record.clear();
        });
    }
    double with_sight() {
        const auto buy = m_tab->get_Control(eODUE_Buy);
        const CRowSight sight = test::sight_of_fields(*m_tab);
        return nanoseconds_of_one(1, [&] {
            dynamic_cast<IPressedButton&>(*buy).Press(sight);
            m_record.clear();
        });
    }

private:
    test::fake_host m_record;
    boost::shared_ptr<test::FakeTabCtrl> m_bar;
    boost::shared_ptr<CTab> m_tab;
};

void measure_logic() {
    host_of_benchmark host(1);
    const CGlobalData global;
    row one(host);
    const double without = one.without_sight();
    const double with = one.with_sight();
    print_head("an order, from the button's field to the host", "of one without a sight");
    print_line("held against nothing", without, without);
    print_line("held against what the row showed", with, without);
}

void measure_screen() {
    host_of_benchmark host(1);
    bar_of_benchmark bar(host);
    bar.fill();
    bar.connect();
    const double press = nanoseconds_of_pressing(bar);
    const double reading = nanoseconds_of_reading_the_row(bar);
    print_head("a press of Buy, up to the host's order", "of a press");
    print_line("the whole press", press, press);
    print_line("of that, reading what the row shows", reading, press);
}

}  // namespace

}  // namespace benchmarks

int main() {
    const benchmarks::apartment_of_benchmark apartment;
    benchmarks::measure_logic();
    if (benchmarks::has_screen()) {
        benchmarks::measure_screen();
    }
}
