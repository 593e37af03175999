// A bar that is made, filled and driven for measuring.
#pragma once

#include <memory>
#include <vector>

#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "tests/support/fake_host.h"

namespace benchmarks {

using apartment_of_benchmark = test::com_apartment;

// A host with that many profiles, all connected. Its record is emptied as it goes.
class host_of_benchmark {
public:
    explicit host_of_benchmark(int count);

    test::fake_host record;
    com_ptr<test::FakeTradingCenter> center;
    std::vector<com_ptr<test::FakeProfile>> profiles;

private:
    test::fake_class m_center_class;
};

// One life of a root in a host, with the bar of its system: windows on a screen, or none.
class bar_of_benchmark {
public:
    explicit bar_of_benchmark(host_of_benchmark& host);
    ~bar_of_benchmark();
    bar_of_benchmark(const bar_of_benchmark&) = delete;
    bar_of_benchmark& operator=(const bar_of_benchmark&) = delete;

    void fill();
    // Gives each tab its symbol, and shows the first.
    void connect();
    // A new quote of one profile's symbol. On a screen, up to the painted button.
    void quote(int profile, double price);
    void select(int profile);
    HWND get_Window() const { return m_window; }
    // The host's record grows with every call.
    void forget_calls() { m_host.record.clear(); }

private:
    host_of_benchmark& m_host;
    com_ptr<OV_OrderDeck::COrderDeckObj> m_root;
    HWND m_window = nullptr;
};

// The window in which bars are made, one for the program.
HWND parent_of_benchmark();
// Serves what waits for the windows of the program.
void serve();
// Everything that is to be painted is painted.
void paint(HWND window);

}  // namespace benchmarks
