#include "benchmarks/bar_of_benchmark.h"

namespace benchmarks {

bool has_screen() {
    return false;
}

double nanoseconds_of_reading_the_row(bar_of_benchmark&) {
    return 0.0;
}

double nanoseconds_of_pressing(bar_of_benchmark&) {
    return 0.0;
}

}  // namespace benchmarks
