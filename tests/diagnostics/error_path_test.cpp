// The error path that throws, and the ladders bound to a reaction.
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/CatchAndCall.h"
#include "tests/diagnostics/record_texts.h"

namespace {

using BugSlayerUtil::AsserterClass;
using BugSlayerUtil::CatchAndCall;
using BugSlayerUtil::code_location;
using BugSlayerUtil::ShowError;
using BugSlayerUtil::ThrowError;
using BugSlayerUtil::TracerClass;
using Texts = std::vector<std::wstring>;

static_assert(std::is_base_of_v<TracerClass, AsserterClass>);
static_assert(std::is_base_of_v<AsserterClass, ShowError>);
static_assert(std::is_base_of_v<AsserterClass, ThrowError>);
static_assert(std::is_base_of_v<ShowError, CatchAndCall<ShowError>>);
static_assert(std::is_base_of_v<ThrowError, CatchAndCall<ThrowError>>);

constexpr code_location place{"src/Singleton.cpp", 5, "GetObject", "T& GetObject()"};

class ErrorPath : public testing::Test {
protected:
    ErrorPath() {
        BugSlayerUtil::trace(place, L"connect");
        recorder.clear();
        SetLastError(0);
    }

    diagnostics_recorder recorder;
};

// What a call throws: the record, which is released, or the text.
struct thrown {
    bool record = false;
    std::wstring text;
};

template <class Call>
thrown caught(Call call) {
    try {
        call();
    } catch (IDebugObject* record) {
        record->Release();
        return {true, {}};
    } catch (wchar_t* text) {
        return {false, text};
    }
    return {};
}

TEST_F(ErrorPath, WritesItsFieldsInTheirOrder) {
    SetLastError(6);
    EXPECT_TRUE(caught([] { ThrowError(place, 2).React(L"Singleton"); }).record);
    const processed_record record = only_record(recorder);
    EXPECT_EQ(field_list(record), (Texts{L"<<ERROR>> EMPTY", L"$Type BSTR", L"$ThreadID UI4",
                                         L"Last Error Code UI4", L"Description BSTR", L"File BSTR",
                                         L"Line INT", L"$Group INT", L"Function BSTR", L"$FuncSig BSTR"}));
    EXPECT_EQ(text_of(record, L"$Type"), L"CREATE ERROR");
    EXPECT_EQ(number_of(record, L"$ThreadID"), GetCurrentThreadId());
    EXPECT_EQ(number_of(record, L"Last Error Code"), 6);
    EXPECT_EQ(text_of(record, L"Description"), L"Singleton");
    EXPECT_EQ(text_of(record, L"File"), L"src/Singleton.cpp");
    EXPECT_EQ(number_of(record, L"Line"), 5);
    EXPECT_EQ(number_of(record, L"$Group"), 2);
    EXPECT_EQ(text_of(record, L"Function"), L"GetObject");
    EXPECT_EQ(text_of(record, L"$FuncSig"), L"T& GetObject()");
}

TEST_F(ErrorPath, LeavesOutWhatIsNotSet) {
    caught([] { BugSlayerUtil::throw_error(place, ""); });
    EXPECT_EQ(field_list(only_record(recorder)),
              (Texts{L"<<ERROR>> EMPTY", L"$Type BSTR", L"$ThreadID UI4", L"File BSTR", L"Line INT",
                     L"Function BSTR", L"$FuncSig BSTR"}));
}

TEST_F(ErrorPath, ThrowsTheRecordThatTheCatcherReleases) {
    EXPECT_TRUE(caught([] { BugSlayerUtil::throw_error(place, "Singleton"); }).record);
    EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"FILTER", L"PROCESS", L"RELEASE"}));
}

TEST_F(ErrorPath, ThrowsTheTextWhenTheLibraryGivesNoRecord) {
    recorder.answer(L"CREATE", E_FAIL);
    const thrown result = caught([] { BugSlayerUtil::throw_error(place, "m_Object.get()"); });
    EXPECT_FALSE(result.record);
    EXPECT_EQ(result.text, L"m_Object.get()");
}

TEST_F(ErrorPath, CutsAThrownTextThatIsTooLong) {
    recorder.answer(L"CREATE", E_FAIL);
    EXPECT_EQ(caught([] { ThrowError(place).React(std::wstring(1000, L'x')); }).text,
              std::wstring(255, L'x'));
}

TEST_F(ErrorPath, KeepsTheLastError) {
    recorder.at_each_step([] { SetLastError(999); });
    SetLastError(12);
    try {
        BugSlayerUtil::throw_error(place, "Singleton");
    } catch (IDebugObject* record) {
        EXPECT_EQ(GetLastError(), 12u);
        record->Release();
    }
    SetLastError(13);
    BugSlayerUtil::guard(place, [] { BugSlayerUtil::throw_error(place, "Singleton"); });
    EXPECT_EQ(GetLastError(), 13u);
}

TEST_F(ErrorPath, ShowErrorReportsWithTheLastErrorOfItsStart) {
    SetLastError(21);
    CatchAndCall<ShowError> scope(place);
    const HRESULT result = scope.Run([] {
        SetLastError(22);
        throw std::out_of_range("row");
    });
    EXPECT_EQ(result, E_INVALIDARG);
    EXPECT_EQ(GetLastError(), 21u);
    const std::wstring text = L"std::out_of_range - row; FILE - src/Singleton.cpp, LINE - 5";
    EXPECT_EQ(recorder.traces(), Texts{text});
    ASSERT_EQ(recorder.assertions().size(), 1u);
    EXPECT_EQ(recorder.assertions()[0].description, text);
    EXPECT_EQ(recorder.assertions()[0].hresult, E_INVALIDARG);
    EXPECT_EQ(number_of(recorder.records()[1], L"Last Error Code"), 21);
}

TEST_F(ErrorPath, ShowErrorWritesNothingWhenNothingIsThrownOrMemoryRanOut) {
    EXPECT_EQ(CatchAndCall<ShowError>(place).Run([] {}), S_OK);
    EXPECT_EQ(CatchAndCall<ShowError>(place).Run([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_TRUE(recorder.steps().empty());
}

TEST_F(ErrorPath, ThrowErrorThrowsWhatTheLadderCaughtAsAnErrorOfItsOwn) {
    const auto fail = [] { CatchAndCall<ThrowError>(place).Run([] { _com_issue_error(E_FAIL); }); };
    EXPECT_TRUE(caught(fail).record);
    const std::wstring text = L"HRESULT - 80004005; FILE - src/Singleton.cpp, LINE - 5";
    EXPECT_EQ(recorder.traces(), Texts{text});
    EXPECT_EQ(recorder.errors(), Texts{text});
    recorder.answer(L"CREATE", E_FAIL);
    EXPECT_EQ(caught(fail).text, text);
}

TEST_F(ErrorPath, ThrowErrorLetsGoOnWhatHasNoText) {
    EXPECT_EQ(CatchAndCall<ThrowError>(place).Run([] {}), S_OK);
    EXPECT_THROW(CatchAndCall<ThrowError>(place).Run([] { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_TRUE(recorder.steps().empty());
}

}  // namespace
