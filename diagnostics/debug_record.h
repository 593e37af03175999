#pragma once

#include <string>

#include "diagnostics/IDebugObject.h"
#include "diagnostics/code_location.h"
#include "platform/com_ptr.h"
#include "platform/text.h"

namespace BugSlayerUtil {

// One record of the library while it is being built, released at the end. A field that the library
// refuses is lost and nothing else. The setters throw std::bad_alloc.
class debug_record {
public:
    // Null object: no library, and no record will come.
    explicit debug_record(com_ptr<IDebugObject> object) : m_object(std::move(object)) {}

    // "CREATE". Gives S_OK with a record to write to, or a failure.
    HRESULT Create() noexcept;

    // Sends a command for this record and gives its result.
    HRESULT Send(const wchar_t* command) noexcept;

    // "FILTER", then "PROCESS" unless the filter stopped it, which gives S_OK.
    HRESULT Process() noexcept;

    // Each says which type the field has: empty, BSTR, UI4, INT, I4, UI8, R8, BOOL.
    void SetMark(const wchar_t* name);
    void SetText(const wchar_t* name, const CString& text);
    void SetText(const wchar_t* name, const char* utf8);
    void SetUnsigned(const wchar_t* name, DWORD value);
    void SetInt(const wchar_t* name, int value);
    void SetResult(const wchar_t* name, HRESULT value);
    void SetAddress(const wchar_t* name, const void* value) noexcept;
    void SetReal(const wchar_t* name, double value);
    void SetBool(const wchar_t* name, bool value);

    // Fields of the same form in every kind: "File", "Line" and "$Group" (unless 0), "Function" and
    // "$FuncSig", which are for a lambda those of the function it stands in.
    void SetSource(const code_location& where, int group);
    void SetFunction(const code_location& where);

    // Gives the record with its reference away.
    com_ptr<IDebugObject> Detach() noexcept { return std::move(m_record); }

private:
    void Set(const wchar_t* name, const VARIANT& value) noexcept;

    com_ptr<IDebugObject> m_object;
    com_ptr<IDebugObject> m_record;
};

}  // namespace BugSlayerUtil
