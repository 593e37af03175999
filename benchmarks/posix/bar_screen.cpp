// Without windows: bars are those that only remember their tabs.
#include "benchmarks/bar_of_benchmark.h"
#include "tests/root/fake_bar.h"
#include "tests/support/recording_desktop.h"

namespace benchmarks {

HWND parent_of_benchmark() {
    static test::recording_desktop desktop;
    static test::bar_factory factory;
    static const HWND window = [] {
        factory.window = desktop.make_window();
        test::the_bar_factory = &factory;
        return desktop.make_window(L"host");
    }();
    return window;
}

void serve() {
    // The last bar goes with its root.
    test::the_bar_factory->last.reset();
    test::the_bar_factory->host.clear();
}

void paint(HWND) {}

}  // namespace benchmarks
