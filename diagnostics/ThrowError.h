#pragma once

#include "diagnostics/AsserterClass.h"

namespace BugSlayerUtil {

// The error path: reports and throws.
class ThrowError : public AsserterClass {
public:
    using AsserterClass::AsserterClass;

    // Writes an error record and throws it as an IDebugObject* whose reference is the catcher's; when
    // the library made none, throws the text as a wchar_t* that stays valid until this thread's next such
    // error. A text that is longer than 255 characters is cut there.
    [[noreturn]] void React(const CString& text, std::optional<HRESULT> hr = {});

    static constexpr bool throws = true;

private:
    com_ptr<IDebugObject> Write(const CString& text) noexcept;
};

}  // namespace BugSlayerUtil
