// How much of a thread's state the context of an assertion shows.
#include <gtest/gtest.h>

#include <windows.h>

#include "diagnostics/BugSlayerUtil.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

diagnostics_recorder* current = nullptr;
DWORD flags_at_processing = 0;

// While the record is processed the pointers that it was given are good.
void read_context() {
    const std::vector<debug_step> steps = current->steps();
    if (steps.back().what != L"PROCESS") {
        return;
    }
    for (const debug_step& step : steps) {
        if (step.what == L"SET" && step.field.name == L"$EXCEPTION_POINTERS") {
            flags_at_processing = reinterpret_cast<const EXCEPTION_POINTERS*>(step.field.value.integer)
                                      ->ContextRecord->ContextFlags;
        }
    }
}

TEST(AssertionContext, ShowsControlIntegersAndFloatingPoint) {
    diagnostics_recorder recorder;
    current = &recorder;
    BugSlayerUtil::trace(BS_HERE, L"connect");
    recorder.clear();
    recorder.at_each_step(&read_context);
    BS_ASSERT(false);
    EXPECT_EQ(flags_at_processing, 0x10000BU);
}

}  // namespace
