// Calls and records as texts that an expectation can be written against by hand.
#pragma once

#include <string>
#include <vector>

#include "tests/support/diagnostics_recorder.h"

// "name type", such as L"Line INT", in the order of writing.
std::vector<std::wstring> field_list(const processed_record& record);

// The calls without the fields of the records: L"CREATE", L"PROCESS", L"RELEASE", ...
std::vector<std::wstring> call_list(const diagnostics_recorder& recorder);

// The text or the whole number of a field; a test failure and an empty value when it is missing.
std::wstring text_of(const processed_record& record, const wchar_t* name);
long long number_of(const processed_record& record, const wchar_t* name);

// The only record of the recorder; a test failure and an empty record when there are none or several.
processed_record only_record(const diagnostics_recorder& recorder);
