// The three crash handlers, called as the system calls them.
#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/crash_handlers.h"
#include "platform/crash.h"
#include "platform/process.h"
#include "tests/diagnostics/record_texts.h"

namespace {

using BugSlayerUtil::install_crash_handlers;
using BugSlayerUtil::remove_crash_handlers;
using Texts = std::vector<std::wstring>;

// What reached the handlers that ours go on to, by thread. Not a thread_local: one with a destructor may
// outlive its memory at the end of a thread in this compiler's runtime for Windows.
std::mutex chained_lock;
std::map<std::thread::id, Texts> chained_of_threads;

// Of the present thread, whose last error stays.
Texts& chained() {
    const platform::last_error_keeper keeper;
    const std::lock_guard guard(chained_lock);
    return chained_of_threads[std::this_thread::get_id()];
}

void earlier_invalid_parameter(const wchar_t* expression, const wchar_t* function, const wchar_t* file,
                               unsigned line, std::uintptr_t) {
    chained().push_back(std::wstring(expression) + L" " + function + L" " + file + L" " +
                        std::to_wstring(line));
}

void earlier_translator(unsigned code, _EXCEPTION_POINTERS*) {
    chained().push_back(L"earlier " + std::to_wstring(code));
}

void other_threads_translator(unsigned code, _EXCEPTION_POINTERS*) {
    chained().push_back(L"other " + std::to_wstring(code));
}

LONG STDMETHODCALLTYPE earlier_filter(_EXCEPTION_POINTERS*) {
    chained().push_back(L"earlier filter");
    return 0;
}

// Handlers that come later than ours and go on to what they found, as they should.
platform::invalid_parameter_handler below_later_handler = nullptr;
platform::unhandled_filter below_later_filter = nullptr;
platform::se_translator below_later_translator = nullptr;

void later_invalid_parameter(const wchar_t* expression, const wchar_t* function, const wchar_t* file,
                             unsigned line, std::uintptr_t reserved) {
    chained().push_back(L"later");
    below_later_handler(expression, function, file, line, reserved);
}

LONG STDMETHODCALLTYPE later_filter(_EXCEPTION_POINTERS* pointers) {
    chained().push_back(L"later filter");
    return below_later_filter(pointers);
}

void later_translator(unsigned code, _EXCEPTION_POINTERS* pointers) {
    chained().push_back(L"later " + std::to_wstring(code));
    below_later_translator(code, pointers);
}

// Calls a filter as the system does for an exception here.
void fall_into(platform::unhandled_filter filter) {
    platform::with_context_of_this_thread(
        1,
        [](const platform::exception_block& block, void* argument) noexcept {
            const auto called = reinterpret_cast<platform::unhandled_filter>(argument);
            called(static_cast<_EXCEPTION_POINTERS*>(const_cast<void*>(block.pointers)));
        },
        reinterpret_cast<void*>(filter));
}

class CrashHandlers : public testing::Test {
protected:
    CrashHandlers() {
        BugSlayerUtil::trace(BS_HERE, L"connect");
        recorder.clear();
        chained_of_threads.clear();
    }
    ~CrashHandlers() override {
        remove_crash_handlers();
        platform::set_invalid_parameter_handler(m_parameter_handler);
        platform::set_unhandled_filter(m_filter);
        platform::set_se_translator(nullptr);
    }

    diagnostics_recorder recorder;

private:
    const platform::invalid_parameter_handler m_parameter_handler =
        platform::set_invalid_parameter_handler(&earlier_invalid_parameter);
    const platform::unhandled_filter m_filter = platform::set_unhandled_filter(&earlier_filter);
};

platform::invalid_parameter_handler installed_parameter_handler() {
    const auto handler = platform::set_invalid_parameter_handler(nullptr);
    platform::set_invalid_parameter_handler(handler);
    return handler;
}

platform::unhandled_filter installed_filter() {
    const auto filter = platform::set_unhandled_filter(nullptr);
    platform::set_unhandled_filter(filter);
    return filter;
}

TEST_F(CrashHandlers, ReportARefusedArgumentAsAnExceptionAndGoOnToTheEarlierHandler) {
    install_crash_handlers();
    SetLastError(8);
    installed_parameter_handler()(L"buffer", L"copy", L"copy.c", 12, 0);
    EXPECT_EQ(GetLastError(), 8u);
    EXPECT_EQ(chained(), Texts{L"buffer copy copy.c 12"});
    EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"PROCESS", L"RELEASE"}));
    const processed_record record = only_record(recorder);
    EXPECT_EQ(field_list(record), (Texts{L"<<EXCEPTION>> EMPTY", L"$Type BSTR", L"ExceptionType INT",
                                         L"ErrorCode UI4", L"Thread ID UI4", L"Code UI4", L"Continuable UI4",
                                         L"Address UI8", L"$EXCEPTION_POINTERS UI8"}));
    EXPECT_EQ(text_of(record, L"$Type"), L"EXCEPTION");
    EXPECT_EQ(number_of(record, L"ErrorCode"), 0xC000000D);
    EXPECT_EQ(number_of(record, L"Code"), 0xC000000D);
    EXPECT_EQ(number_of(record, L"Continuable"), 0);
    EXPECT_EQ(number_of(record, L"Thread ID"), GetCurrentThreadId());
    EXPECT_NE(number_of(record, L"Address"), 0);
    EXPECT_NE(number_of(record, L"$EXCEPTION_POINTERS"), 0);
    const std::vector<debug_step> steps = recorder.steps();
    EXPECT_EQ(steps[steps.size() - 2].field.name, L"$EXCEPTION_POINTERS");
    EXPECT_EQ(steps[steps.size() - 2].field.value.integer, 0);
}

TEST_F(CrashHandlers, InstalledAgainDoNotGoOnToThemselves) {
    install_crash_handlers();
    install_crash_handlers();
    std::thread([] { install_crash_handlers(); }).join();
    installed_parameter_handler()(L"buffer", L"copy", L"copy.c", 12, 0);
    EXPECT_EQ(chained().size(), 1u);
    EXPECT_EQ(recorder.records().size(), 1u);
}

TEST_F(CrashHandlers, InstalledOverALaterHandlerThatGoesOnToThemMakeNoRing) {
    install_crash_handlers();
    below_later_handler = platform::set_invalid_parameter_handler(&later_invalid_parameter);
    below_later_filter = platform::set_unhandled_filter(&later_filter);
    std::thread([] { install_crash_handlers(); }).join();
    installed_parameter_handler()(L"buffer", L"copy", L"copy.c", 12, 0);
    EXPECT_EQ(chained(), (Texts{L"later", L"buffer copy copy.c 12"}));
    EXPECT_EQ(recorder.records().size(), 1u);
    chained().clear();
    fall_into(installed_filter());
    EXPECT_EQ(chained(), (Texts{L"later filter", L"earlier filter"}));
    EXPECT_EQ(recorder.records().size(), 2u);
    chained().clear();
    // Each call goes the whole way, not only the first.
    installed_parameter_handler()(L"buffer", L"copy", L"copy.c", 13, 0);
    EXPECT_EQ(chained(), (Texts{L"later", L"buffer copy copy.c 13"}));
}

TEST_F(CrashHandlers, GoOnOnceToAHandlerThatIsFoundAgain) {
    for (int i = 0; i < 20; ++i) {
        install_crash_handlers();
        platform::set_invalid_parameter_handler(&earlier_invalid_parameter);
        platform::set_unhandled_filter(&earlier_filter);
    }
    install_crash_handlers();
    installed_parameter_handler()(L"buffer", L"copy", L"copy.c", 12, 0);
    fall_into(installed_filter());
    EXPECT_EQ(chained(), (Texts{L"buffer copy copy.c 12", L"earlier filter"}));
}

TEST_F(CrashHandlers, MakeNoRingOfTranslators) {
    platform::set_se_translator(&earlier_translator);
    install_crash_handlers();
    below_later_translator = platform::set_se_translator(&later_translator);
    install_crash_handlers();
    platform::set_se_translator(nullptr)(5, nullptr);
    EXPECT_EQ(chained(), (Texts{L"later 5", L"earlier 5"}));
}

TEST_F(CrashHandlers, AreInstalledFromManyThreadsAtOnce) {
    std::atomic<int> ready{0};
    std::atomic<int> translated{0};
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            platform::set_se_translator(&other_threads_translator);
            ++ready;
            while (ready < 8) {
                std::this_thread::yield();
            }
            install_crash_handlers();
            platform::set_se_translator(nullptr)(4, nullptr);
            translated += chained() == Texts{L"other 4"} ? 1 : 0;
        });
    }
    for (std::thread& each : threads) {
        each.join();
    }
    EXPECT_EQ(translated, 8);
    installed_parameter_handler()(L"buffer", L"copy", L"copy.c", 12, 0);
    EXPECT_EQ(chained(), Texts{L"buffer copy copy.c 12"});
}

TEST_F(CrashHandlers, KeepTheEarlierTranslatorOfEachThread) {
    platform::set_se_translator(&earlier_translator);
    install_crash_handlers();
    Texts of_other_thread;
    std::thread([&] {
        platform::set_se_translator(&other_threads_translator);
        install_crash_handlers();
        platform::set_se_translator(nullptr)(2, nullptr);
        of_other_thread = chained();
    }).join();
    const platform::se_translator ours = platform::set_se_translator(nullptr);
    ASSERT_NE(ours, &earlier_translator);
    ours(1, nullptr);
    EXPECT_EQ(chained(), Texts{L"earlier 1"});
    EXPECT_EQ(of_other_thread, Texts{L"other 2"});
    EXPECT_TRUE(recorder.records().empty());
}

TEST_F(CrashHandlers, AreTranslatedByNobodyOnAThreadThatHadNoTranslator) {
    install_crash_handlers();
    platform::set_se_translator(nullptr)(3, nullptr);
    EXPECT_TRUE(chained().empty());
}

TEST_F(CrashHandlers, GiveTheirPlaceBackWhenTheModuleGoes) {
    install_crash_handlers();
    remove_crash_handlers();
    EXPECT_EQ(platform::set_unhandled_filter(&earlier_filter), &earlier_filter);
    EXPECT_EQ(platform::set_invalid_parameter_handler(&earlier_invalid_parameter),
              &earlier_invalid_parameter);
}

TEST_F(CrashHandlers, LeaveAHandlerAloneThatCameLater) {
    install_crash_handlers();
    platform::set_invalid_parameter_handler(nullptr);
    remove_crash_handlers();
    EXPECT_EQ(platform::set_invalid_parameter_handler(&earlier_invalid_parameter), nullptr);
}

}  // namespace
