#include "tests/diagnostics/record_texts.h"

#include <gtest/gtest.h>

namespace {

const wchar_t* type_name(VARTYPE type) {
    switch (type) {
        case VT_EMPTY:
            return L"EMPTY";
        case VT_BSTR:
            return L"BSTR";
        case VT_I4:
            return L"I4";
        case VT_UI4:
            return L"UI4";
        case VT_UI8:
            return L"UI8";
        case VT_INT:
            return L"INT";
        case VT_BOOL:
            return L"BOOL";
        case VT_R8:
            return L"R8";
        default:
            return L"other";
    }
}

recorded_value value_of(const processed_record& record, const wchar_t* name) {
    const recorded_value* const value = find_field(record, name);
    if (value == nullptr) {
        ADD_FAILURE() << "the record has no such field: " << std::string(name, name + std::wcslen(name));
        return {};
    }
    return *value;
}

}  // namespace

std::vector<std::wstring> field_list(const processed_record& record) {
    std::vector<std::wstring> list;
    list.reserve(record.fields.size());
    for (const recorded_field& field : record.fields) {
        list.push_back(field.name + L" " + type_name(field.value.type));
    }
    return list;
}

std::vector<std::wstring> call_list(const diagnostics_recorder& recorder) {
    std::vector<std::wstring> list;
    for (const debug_step& step : recorder.steps()) {
        if (step.what != L"SET") {
            list.push_back(step.what);
        }
    }
    return list;
}

std::wstring text_of(const processed_record& record, const wchar_t* name) {
    return value_of(record, name).text;
}

long long number_of(const processed_record& record, const wchar_t* name) {
    return value_of(record, name).integer;
}

processed_record only_record(const diagnostics_recorder& recorder) {
    const std::vector<processed_record> records = recorder.records();
    EXPECT_EQ(records.size(), 1u);
    return records.size() == 1 ? records[0] : processed_record();
}
