#include "tests/support/diagnostics_recorder.h"

#include <mutex>
#include <stdexcept>

#include "platform/module.h"

namespace {

debug_steps& load_steps() {
    const CString path =
        platform::folder_of(platform::program_path()) + L"diagnostics_library/BugSlayerUtil3.0_x64.dll";
    const HMODULE library = platform::load_library(path);
    if (library == nullptr) {
        throw std::runtime_error("the recording diagnostics library can't be loaded");
    }
    return *reinterpret_cast<BS_StepsFunction>(platform::find_export(library, "BS_Steps"))();
}

debug_steps& the_steps() {
    static debug_steps& steps = load_steps();
    return steps;
}

std::wstring text(const processed_record& record, const wchar_t* name) {
    const recorded_value* const value = find_field(record, name);
    return value != nullptr ? value->text : std::wstring();
}

reported_assertion assertion_of(const processed_record& record) {
    reported_assertion result;
    result.description = text(record, L"Description");
    if (const recorded_value* const hr = find_field(record, L"HRESULT")) {
        result.hresult = static_cast<HRESULT>(hr->integer);
    }
    result.file = text(record, L"File");
    if (const recorded_value* const line = find_field(record, L"Line")) {
        result.line = static_cast<int>(line->integer);
    }
    result.function = text(record, L"Function");
    return result;
}

std::vector<std::wstring> texts_of(const std::vector<processed_record>& records, const wchar_t* type,
                                   const wchar_t* name) {
    std::vector<std::wstring> result;
    for (const processed_record& record : records) {
        if (text(record, L"$Type") == type) {
            result.push_back(text(record, name));
        }
    }
    return result;
}

}  // namespace

const recorded_value* find_field(const processed_record& record, const std::wstring& name) {
    for (const recorded_field& field : record.fields) {
        if (field.name == name) {
            return &field.value;
        }
    }
    return nullptr;
}

diagnostics_recorder::diagnostics_recorder() : m_steps(&the_steps()) {
    clear();
}

diagnostics_recorder::~diagnostics_recorder() {
    clear();
}

std::vector<reported_assertion> diagnostics_recorder::assertions() const {
    std::vector<reported_assertion> result;
    for (const processed_record& record : records()) {
        if (text(record, L"$Type") == L"ASSERT") {
            result.push_back(assertion_of(record));
        }
    }
    return result;
}

std::vector<std::wstring> diagnostics_recorder::traces() const {
    return texts_of(records(), L"TRACE", L"$Message");
}

std::vector<std::wstring> diagnostics_recorder::errors() const {
    return texts_of(records(), L"CREATE ERROR", L"Description");
}

std::vector<processed_record> diagnostics_recorder::records() const {
    const std::lock_guard guard(*m_steps);
    return m_steps->records();
}

std::vector<debug_step> diagnostics_recorder::steps() const {
    const std::lock_guard guard(*m_steps);
    return m_steps->steps();
}

void diagnostics_recorder::clear() {
    const std::lock_guard guard(*m_steps);
    m_steps->clear();
}

void diagnostics_recorder::answer(const std::wstring& what, HRESULT result) {
    const std::lock_guard guard(*m_steps);
    m_steps->answer(what.c_str(), result);
}

void diagnostics_recorder::give_no_record(bool none) {
    const std::lock_guard guard(*m_steps);
    m_steps->give_no_record(none);
}

void diagnostics_recorder::at_each_step(void (*action)()) {
    const std::lock_guard guard(*m_steps);
    m_steps->at_each_step(action);
}
