// What the recording diagnostics library tells the tests. Library and tests are built together, so plain
// classes cross the border; each side frees only what it made.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/com.h"

// A value of a record as it was given.
struct recorded_value {
    VARTYPE type = VT_EMPTY;
    std::wstring text;
    std::int64_t integer = 0;
    double real = 0;
};

struct recorded_field {
    std::wstring name;
    recorded_value value;
};

// One call of the client. what is the command word, or "SET", "GET", "RELEASE" (the last reference of a
// record), "FAILURE", "BS_InitObject". record tells the records apart, 0 is none.
struct debug_step {
    std::wstring what;
    unsigned record = 0;
    recorded_field field;
};

// A record when "PROCESS" came for it.
struct processed_record {
    unsigned record = 0;
    std::vector<recorded_field> fields;
};

// The library's other export: extern "C" debug_steps* BS_Steps().
class debug_steps {
public:
    // Everything below is called under the lock; the lists stay the library's.
    virtual void lock() noexcept = 0;
    virtual void unlock() noexcept = 0;
    virtual const std::vector<debug_step>& steps() const noexcept = 0;
    virtual const std::vector<processed_record>& records() const noexcept = 0;

    // Forgets all calls and all answers.
    virtual void clear() noexcept = 0;

    // The result of a command word, of "SET" or of "BS_InitObject" from now on.
    virtual void answer(const wchar_t* what, HRESULT result) noexcept = 0;

    // "CREATE" claims success and gives no record.
    virtual void give_no_record(bool none) noexcept = 0;

    // What every call does before it returns, such as leaving another last error behind; null is nothing.
    virtual void at_each_step(void (*action)()) noexcept = 0;

protected:
    ~debug_steps() = default;
};

using BS_StepsFunction = debug_steps* (*)();
