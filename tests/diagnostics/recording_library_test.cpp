// The library that the other tests rely on, used through its exports alone.
#include <gtest/gtest.h>

#include "diagnostics/IDebugObject.h"
#include "platform/com_ptr.h"
#include "platform/module.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using platform::find_export;
using platform::find_loaded_library;
using platform::receive;

com_ptr<IDebugObject> library_object() {
    const HMODULE library = find_loaded_library(L"BugSlayerUtil3.0_x64.dll");
    com_ptr<IDebugObject> object;
    reinterpret_cast<BS_InitObjectFunction>(find_export(library, "BS_InitObject"))(receive(object));
    return object;
}

HRESULT set_text(IDebugObject& record, const wchar_t* name, const wchar_t* text) {
    VARIANT value;
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text);
    const HRESULT result = record.Set(name, &value);
    SysFreeString(value.bstrVal);
    return result;
}

TEST(RecordingLibrary, IsFoundByItsFileNameOnceItIsLoaded) {
    const diagnostics_recorder recorder;
    EXPECT_NE(find_loaded_library(L"BugSlayerUtil3.0_x64.dll"), nullptr);
    EXPECT_EQ(find_loaded_library(L"BugSlayerUtil2.0_x64.dll"), nullptr);
}

TEST(RecordingLibrary, KeepsEveryCallAndTheRecordAsItWasProcessed) {
    diagnostics_recorder recorder;
    const com_ptr<IDebugObject> object = library_object();
    ASSERT_TRUE(object);
    com_ptr<IDebugObject> record;
    ASSERT_EQ(object->Command(receive(record), L"CREATE", nullptr, 0), S_OK);
    ASSERT_TRUE(record);
    EXPECT_EQ(set_text(*record, L"$Type", L"ASSERT"), S_OK);
    EXPECT_EQ(set_text(*record, L"Description", L"bEnabled"), S_OK);
    IDebugObject* raw = record.get();
    recorder.answer(L"PROCESS", 7);
    EXPECT_EQ(object->Command(&raw, L"PROCESS", nullptr, 0), 7);
    record.reset();

    std::vector<std::wstring> calls;
    for (const debug_step& step : recorder.steps()) {
        calls.push_back(step.what + step.field.name);
    }
    EXPECT_EQ(calls, (std::vector<std::wstring>{L"BS_InitObject", L"CREATE", L"SET$Type", L"SETDescription",
                                                L"PROCESS", L"RELEASE"}));
    ASSERT_EQ(recorder.assertions().size(), 1u);
    EXPECT_EQ(recorder.assertions()[0].description, L"bEnabled");
    recorder.clear();
    EXPECT_TRUE(recorder.assertions().empty());
    EXPECT_TRUE(recorder.steps().empty());
}

TEST(RecordingLibrary, AnswersAsItIsTold) {
    diagnostics_recorder recorder;
    recorder.answer(L"CREATE", E_FAIL);
    const com_ptr<IDebugObject> object = library_object();
    com_ptr<IDebugObject> record;
    EXPECT_EQ(object->Command(receive(record), L"CREATE", nullptr, 0), E_FAIL);
    EXPECT_FALSE(record);
    recorder.answer(L"CREATE", S_OK);
    recorder.give_no_record(true);
    EXPECT_EQ(object->Command(receive(record), L"CREATE", nullptr, 0), S_OK);
    EXPECT_FALSE(record);
    recorder.answer(L"BS_InitObject", E_FAIL);
    EXPECT_FALSE(library_object());
}

}  // namespace
