// A signal goes on to the action that was there before ours.
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/crash_handlers.h"
#include "platform/crash.h"
#include "tests/support/child_process.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

CHILD_MAIN(crashes_with_an_earlier_action) {
    signal(SIGSEGV, [](int) { _exit(6); });
    static diagnostics_recorder recorder;
    BugSlayerUtil::install_crash_handlers();
    volatile std::uintptr_t nowhere = 64;
    *reinterpret_cast<volatile int*>(nowhere) = 1;
    return 0;
}

TEST(Crash, GoesOnToTheEarlierActionOfTheSignal) {
    test_support::child_process child("crashes_with_an_earlier_action");
    EXPECT_EQ(child.wait(), 6);
}

}  // namespace
