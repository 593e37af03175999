// Trace records: messages and traced scopes.
#include <gtest/gtest.h>

#include <thread>

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/TracerClass.h"
#include "platform/clock.h"
#include "tests/diagnostics/record_texts.h"

namespace {

using BugSlayerUtil::code_location;
using BugSlayerUtil::TracerClass;
using Texts = std::vector<std::wstring>;

constexpr code_location scope{"src/Tab.cpp", 9, "Refresh", "void Refresh()"};

class set_clock final : public platform::clock {
public:
    SYSTEMTIME local_time() override { return {}; }
    DWORD tick_count() override { return 0; }
    double milliseconds() override { return now; }

    double now = 1000;
};

class Trace : public testing::Test {
protected:
    Trace() {
        BugSlayerUtil::trace(scope, L"connect");
        recorder.clear();
    }

    processed_record record(std::size_t index) {
        const std::vector<processed_record> records = recorder.records();
        return index < records.size() ? records[index] : processed_record();
    }

    diagnostics_recorder recorder;
    set_clock clock;
    platform::port<platform::clock>::replacement clock_stands_in{clock};
};

TEST_F(Trace, OfAMessageWritesItsFieldsInTheirOrder) {
    BugSlayerUtil::trace(scope, L"Master's counter is 2");
    const processed_record seen = only_record(recorder);
    EXPECT_EQ(field_list(seen), (Texts{L"$Type BSTR", L"$Message BSTR", L"$Ident INT", L"File BSTR",
                                       L"Line INT", L"Thread ID UI4", L"Function BSTR", L"$FuncSig BSTR"}));
    EXPECT_EQ(text_of(seen, L"$Type"), L"TRACE");
    EXPECT_EQ(text_of(seen, L"$Message"), L"Master's counter is 2");
    EXPECT_EQ(number_of(seen, L"$Ident"), 0);
    EXPECT_EQ(text_of(seen, L"File"), L"src/Tab.cpp");
    EXPECT_EQ(number_of(seen, L"Line"), 9);
    EXPECT_EQ(number_of(seen, L"Thread ID"), GetCurrentThreadId());
    EXPECT_EQ(text_of(seen, L"Function"), L"Refresh");
    EXPECT_EQ(text_of(seen, L"$FuncSig"), L"void Refresh()");
    EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"FILTER", L"PROCESS", L"RELEASE"}));
}

TEST_F(Trace, LeavesAnEmptyMessageOut) {
    BugSlayerUtil::trace(scope, L"");
    EXPECT_EQ(find_field(only_record(recorder), L"$Message"), nullptr);
}

TEST_F(Trace, FormatsAndTakesTextsAsData) {
    BugSlayerUtil::tracef(scope, "%d - %d", 1, -2);
    BugSlayerUtil::tracef(scope, "%s", "100%d");
    BugSlayerUtil::trace(scope, L"%s%n");
    EXPECT_EQ(recorder.traces(), (Texts{L"1 - -2", L"100%d", L"%s%n"}));
}

TEST_F(Trace, ThatTheFilterStopsIsNotProcessed) {
    recorder.answer(L"FILTER", S_FALSE);
    BugSlayerUtil::trace(scope, L"no");
    EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"FILTER", L"RELEASE"}));
}

TEST_F(Trace, OfAScopeWritesEveryFieldOnTheWayOut) {
    std::atomic<int> count{4};
    std::atomic<double> total{10.5};
    const int object = 0;
    {
        const TracerClass tracer(scope, {.group = 6,
                                         .traceScope = true,
                                         .measureTime = true,
                                         .object = &object,
                                         .count = &count,
                                         .total = &total,
                                         .outFile = L"times.log"});
        clock.now += 2.25;
    }
    EXPECT_EQ(count, 5);
    EXPECT_EQ(total, 12.75);
    ASSERT_EQ(recorder.records().size(), 2u);
    EXPECT_EQ(field_list(record(1)),
              (Texts{L"$Type BSTR", L"$Ident INT", L"File BSTR", L"Line INT", L"$Group INT", L"Thread ID UI4",
                     L"Function BSTR", L"$FuncSig BSTR", L"Object UI8", L"$Delay R8", L"Count INT",
                     L"$TotalTime R8", L"OutFile BSTR"}));
    EXPECT_EQ(number_of(record(1), L"$Ident"), -1);
    EXPECT_EQ(number_of(record(1), L"$Group"), 6);
    EXPECT_EQ(number_of(record(1), L"Object"), reinterpret_cast<std::intptr_t>(&object));
    EXPECT_EQ(find_field(record(1), L"$Delay")->real, 2.25);
    EXPECT_EQ(number_of(record(1), L"Count"), 5);
    EXPECT_EQ(find_field(record(1), L"$TotalTime")->real, 12.75);
    EXPECT_EQ(text_of(record(1), L"OutFile"), L"times.log");
}

TEST_F(Trace, OfAScopeWritesTheEntryWithoutATime) {
    std::atomic<double> total{0};
    const TracerClass tracer(scope, {.traceScope = true, .measureTime = true, .total = &total});
    const processed_record entry = only_record(recorder);
    EXPECT_EQ(number_of(entry, L"$Ident"), 1);
    EXPECT_EQ(find_field(entry, L"$Delay"), nullptr);
    EXPECT_EQ(find_field(entry, L"$TotalTime"), nullptr);
    EXPECT_EQ(find_field(entry, L"Count"), nullptr);
    EXPECT_EQ(find_field(entry, L"Object"), nullptr);
}

TEST_F(Trace, OfAScopeThatIsNotTracedStillAddsUpItsTime) {
    std::atomic<double> total{1};
    {
        const TracerClass tracer(scope, {.measureTime = true, .total = &total});
        clock.now += 3;
    }
    EXPECT_EQ(total, 4);
    EXPECT_TRUE(recorder.steps().empty());
}

TEST_F(Trace, OfAScopeThatIsNotMeasuredHasNoDelay) {
    {
        const TracerClass tracer(scope, {.traceScope = true});
        clock.now += 3;
    }
    ASSERT_EQ(recorder.records().size(), 2u);
    EXPECT_EQ(number_of(record(1), L"$Ident"), -1);
    EXPECT_EQ(find_field(record(1), L"$Delay"), nullptr);
}

TEST_F(Trace, OfAScopePutsTheLastErrorOfItsStartBack) {
    recorder.at_each_step([] { SetLastError(999); });
    SetLastError(17);
    {
        const TracerClass tracer(scope, {.traceScope = true});
        EXPECT_EQ(GetLastError(), 17u);
        SetLastError(18);
    }
    EXPECT_EQ(GetLastError(), 17u);
}

TEST_F(Trace, KeepsTheLastError) {
    recorder.at_each_step([] { SetLastError(999); });
    SetLastError(55);
    BugSlayerUtil::trace(scope, L"text");
    EXPECT_EQ(GetLastError(), 55u);
    BugSlayerUtil::tracef(scope, "%d", 1);
    EXPECT_EQ(GetLastError(), 55u);
}

TEST_F(Trace, IsBuiltOnTheReportingThread) {
    DWORD other = 0;
    std::thread([&] {
        other = GetCurrentThreadId();
        BugSlayerUtil::trace(scope, L"there");
    }).join();
    EXPECT_EQ(number_of(only_record(recorder), L"Thread ID"), other);
    EXPECT_NE(other, GetCurrentThreadId());
}

TEST_F(Trace, OfManyThreadsAtOnceLosesNothing) {
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([] {
            for (int turn = 0; turn < 50; ++turn) {
                BugSlayerUtil::trace(scope, L"turn");
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(recorder.traces().size(), 400u);
}

}  // namespace
