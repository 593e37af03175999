#pragma once

#include <optional>

#include "diagnostics/TracerClass.h"
#include "platform/crash.h"

namespace BugSlayerUtil {

// A place in the code that reports a failure.
class AsserterClass : public TracerClass {
public:
    explicit AsserterClass(const code_location& where, int group = 0) noexcept;

    // Writes an assertion record; the text may be empty. Gives what the library's processing gave, S_OK
    // when the library did not want the record, 0x80004005 when there is no library or no record. What
    // comes back is to be handed to Act. Deliberate: what a failed "CREATE" gave is not handed on, since
    // nobody has seen the report that it would act for.
    HRESULT Report(const CString& text, std::optional<HRESULT> hr = {}) noexcept;

    // See BugSlayerClient::Act.
    void Act(HRESULT result) noexcept { client().Act(result); }

protected:
    // The last error at the place of the failure, which goes into the record. The base has one of its own,
    // which it puts back at the end of the scope: that there are two is deliberate.
    DWORD saved_last_error() const noexcept { return m_dwSavedLastError; }

private:
    HRESULT Write(const CString& text, std::optional<HRESULT> hr,
                  const platform::exception_block& block) noexcept;

    const DWORD m_dwSavedLastError;
};

}  // namespace BugSlayerUtil
