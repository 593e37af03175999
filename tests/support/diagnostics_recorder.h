// What the code under test reported, seen from the other end.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/diagnostics_library/debug_steps.h"

struct reported_assertion {
    std::wstring description;
    std::optional<HRESULT> hresult;
    std::wstring file;
    int line = 0;
    std::wstring function;
};

// Loads the recording diagnostics library, once for the process, and begins with nothing seen and every
// answer S_OK. One at a time; any thread may report meanwhile. The reports of the whole process are
// seen, those of a test before it are not.
class diagnostics_recorder {
public:
    // Throws std::runtime_error when the library can't be loaded.
    diagnostics_recorder();
    ~diagnostics_recorder();
    diagnostics_recorder(const diagnostics_recorder&) = delete;
    diagnostics_recorder& operator=(const diagnostics_recorder&) = delete;

    // In the order of reporting, those that got as far as being processed.
    std::vector<reported_assertion> assertions() const;

    // The messages of traces, those of the catch ladder among them.
    std::vector<std::wstring> traces() const;

    // The descriptions of error records; these are made and thrown by the error path.
    std::vector<std::wstring> errors() const;

    // Every processed record with all its fields, and every call of the client.
    std::vector<processed_record> records() const;
    std::vector<debug_step> steps() const;

    // Forgets what was seen and all answers.
    void clear();

    // See debug_steps.
    void answer(const std::wstring& what, HRESULT result);
    void give_no_record(bool none);
    void at_each_step(void (*action)());

private:
    debug_steps* m_steps;
};

// A field of a record, null when it has none of that name.
const recorded_value* find_field(const processed_record& record, const std::wstring& name);
