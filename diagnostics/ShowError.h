#pragma once

#include "diagnostics/AsserterClass.h"

namespace BugSlayerUtil {

// Reports what was caught in its scope as an assertion and goes on as the library's answer says.
class ShowError : public AsserterClass {
public:
    using AsserterClass::AsserterClass;

    // The thread's last error is first put back to what it was when the scope began.
    void React(const CString& text, std::optional<HRESULT> hr = {}) noexcept {
        SetLastError(saved_last_error());
        Act(Report(text, hr));
    }

    static constexpr bool throws = false;
};

}  // namespace BugSlayerUtil
