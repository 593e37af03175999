// Answers that end the process, and crashes: each in a process of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <thread>

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/crash_handlers.h"
#include "platform/crash.h"
#include "platform/module.h"
#include "platform/process.h"
#include "tests/diagnostics/record_texts.h"
#include "tests/support/child_process.h"

namespace {

using test_support::child_process;
using Lines = std::vector<std::string>;

diagnostics_recorder* current_recorder = nullptr;

// Every call of the client but the setting of fields, as it happens.
void print_step() {
    const debug_step step = current_recorder->steps().back();
    if (step.what != L"SET") {
        std::cout << std::string(step.what.begin(), step.what.end()) << '\n' << std::flush;
    }
}

// A connected recorder that prints.
class printing_recorder : public diagnostics_recorder {
public:
    printing_recorder() {
        BugSlayerUtil::trace(BS_HERE, L"connect");
        clear();
        current_recorder = this;
        at_each_step(&print_step);
    }
};

LONG STDMETHODCALLTYPE last_filter(_EXCEPTION_POINTERS*) {
    std::cout << "earlier filter\n" << std::flush;
    platform::terminate_process(7);
}

// The exit code as a parent sees it: whole on the one system, eight bits of it on the other.
unsigned seen_by_parent(unsigned code) {
    return sizeof(wchar_t) == 2 ? code : code & 0xFF;
}

Lines lines_of(child_process& child) {
    Lines lines;
    for (std::string line = child.read_line(); !line.empty(); line = child.read_line()) {
        lines.push_back(line);
    }
    return lines;
}

CHILD_MAIN(gets_an_answer_to_its_assertion) {
    printing_recorder recorder;
    platform::set_unhandled_filter(&last_filter);
    recorder.answer(L"PROCESS", static_cast<HRESULT>(std::stoll(arguments.at(0))));
    BS_ASSERT(false);
    std::cout << "after\n" << std::flush;
    return 0;
}

TEST(ProcessEnd, ComesAfterDeinitWhenAnAssertionIsAnsweredWithAbort) {
    child_process child("gets_an_answer_to_its_assertion", {std::to_string(E_ABORT)});
    EXPECT_EQ(lines_of(child), (Lines{"CREATE", "FILTER", "PROCESS", "RELEASE", "DEINIT"}));
    EXPECT_EQ(static_cast<unsigned>(child.wait()), seen_by_parent(0xFFFFFFFF));
}

TEST(ProcessEnd, IsABreakWhenAnAssertionIsAnsweredWithOne) {
    child_process child("gets_an_answer_to_its_assertion", {"1"});
    EXPECT_EQ(lines_of(child), (Lines{"CREATE", "FILTER", "PROCESS", "RELEASE", "earlier filter"}));
    EXPECT_EQ(child.wait(), 7);
}

TEST(ProcessEnd, DoesNotComeForAnotherAnswer) {
    child_process child("gets_an_answer_to_its_assertion", {std::to_string(E_FAIL)});
    Lines lines = lines_of(child);
    lines.resize(5);
    EXPECT_EQ(lines, (Lines{"CREATE", "FILTER", "PROCESS", "RELEASE", "after"}));
    EXPECT_EQ(child.wait(), 0);
}

CHILD_MAIN(is_terminated) {
    const printing_recorder recorder;
    BugSlayerUtil::Client::Get().Terminate();
    std::cout << "after\n" << std::flush;
    return 0;
}

TEST(ProcessEnd, ComesAfterTerminate) {
    child_process child("is_terminated");
    EXPECT_EQ(lines_of(child), Lines{"TERMINATE"});
    EXPECT_EQ(static_cast<unsigned>(child.wait()), seen_by_parent(0xFFFFFFFF));
}

CHILD_MAIN(has_an_argument_refused) {
    printing_recorder recorder;
    recorder.answer(L"PROCESS", E_ABORT);
    BugSlayerUtil::install_crash_handlers();
    platform::set_invalid_parameter_handler(nullptr)(L"", L"", L"", 0, 0);
    std::cout << "after\n" << std::flush;
    return 0;
}

TEST(ProcessEnd, HasTheCodeOfTheRefusedArgument) {
    child_process child("has_an_argument_refused");
    EXPECT_EQ(lines_of(child), (Lines{"CREATE", "PROCESS", "RELEASE", "DEINIT"}));
    EXPECT_EQ(static_cast<unsigned>(child.wait()), seen_by_parent(0xC000000D));
}

LONG STDMETHODCALLTYPE printing_filter(_EXCEPTION_POINTERS* pointers) {
    for (const processed_record& record : current_recorder->records()) {
        std::cout << "type " << number_of(record, L"ExceptionType") << ", code " << std::hex
                  << number_of(record, L"ErrorCode") << " and " << number_of(record, L"Code") << '\n'
                  << std::flush;
    }
    return last_filter(pointers);
}

void crash() {
    volatile std::uintptr_t nowhere = 64;
    *reinterpret_cast<volatile int*>(nowhere) = 1;
}

CHILD_MAIN(crashes) {
    printing_recorder recorder;
    recorder.answer(L"PROCESS", E_ABORT);
    platform::set_unhandled_filter(&printing_filter);
    BugSlayerUtil::install_crash_handlers();
    BugSlayerUtil::install_crash_handlers();
    crash();
    std::cout << "after\n" << std::flush;
    return 0;
}

TEST(Crash, IsReportedAndGoesOnToTheEarlierFilterWhateverTheAnswer) {
    child_process child("crashes");
    EXPECT_EQ(lines_of(child), (Lines{"CREATE", "PROCESS", "RELEASE", "type 1, code c0000005 and c0000005",
                                      "earlier filter"}));
    EXPECT_EQ(child.wait(), 7);
}

CHILD_MAIN(breaks) {
    const printing_recorder recorder;
    platform::set_unhandled_filter(&printing_filter);
    BugSlayerUtil::install_crash_handlers();
    platform::debug_break();
    std::cout << "after\n" << std::flush;
    return 0;
}

TEST(Crash, ThatIsABreakHasItsOwnCode) {
    child_process child("breaks");
    EXPECT_EQ(lines_of(child), (Lines{"CREATE", "PROCESS", "RELEASE", "type 1, code 80000003 and 80000003",
                                      "earlier filter"}));
    EXPECT_EQ(child.wait(), 7);
}

CHILD_MAIN(ends_as_it_should) {
    static printing_recorder& recorder = *new printing_recorder;
    BugSlayerUtil::trace(BS_HERE, L"last words");
    recorder.steps();
    return 0;
}

TEST(ProcessEnd, OfItselfTakesLeaveOfTheLibrary) {
    child_process child("ends_as_it_should");
    EXPECT_EQ(lines_of(child), (Lines{"CREATE", "FILTER", "PROCESS", "RELEASE", "DEINIT"}));
    EXPECT_EQ(child.wait(), 0);
}

void refuse_argument(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, std::uintptr_t) {}

// Says whether the handlers that were there before ours are back. What runs at the exit runs in the reverse
// of the order in which it was asked for, so this comes after the clean-up.
void tell_handlers() {
    const bool filter = platform::set_unhandled_filter(nullptr) == &last_filter;
    const bool handler = platform::set_invalid_parameter_handler(nullptr) == &refuse_argument;
    std::cout << (filter ? "earlier filter, " : "our filter, ")
              << (handler ? "earlier handler\n" : "our handler\n") << std::flush;
}

CHILD_MAIN(has_a_worker_and_nothing_to_report) {
    platform::set_unhandled_filter(&last_filter);
    platform::set_invalid_parameter_handler(&refuse_argument);
    std::atexit(&tell_handlers);
    std::thread([] { BugSlayerUtil::install_crash_handlers(); }).join();
    return 0;
}

TEST(ProcessEnd, PutsTheEarlierHandlersBackThoughNothingWasReported) {
    child_process child("has_a_worker_and_nothing_to_report");
    EXPECT_EQ(child.read_line(), "earlier filter, earlier handler");
    EXPECT_EQ(child.wait(), 0);
}

}  // namespace
