#include "diagnostics/exception_report.h"

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/debug_record.h"

namespace BugSlayerUtil {

HRESULT report_exception(exception_source source, const platform::exception_block& block) noexcept {
    const platform::last_error_keeper keeper;
    try {
        debug_record record(Client::Get().ReadyObject());
        if (record.Create() != S_OK) {
            return E_FAIL;
        }
        record.SetMark(L"<<EXCEPTION>>");
        record.SetText(L"$Type", L"EXCEPTION");
        record.SetInt(L"ExceptionType", source);
        record.SetUnsigned(L"ErrorCode", block.summary.code);
        record.SetUnsigned(L"Thread ID", GetCurrentThreadId());
        record.SetUnsigned(L"Code", block.summary.code);
        record.SetUnsigned(L"Continuable", block.summary.flags);
        record.SetAddress(L"Address", block.summary.address);
        record.SetAddress(L"$EXCEPTION_POINTERS", block.pointers);
        const HRESULT result = record.Send(L"PROCESS");
        record.SetAddress(L"$EXCEPTION_POINTERS", nullptr);
        return result;
    } catch (...) {
        // Out of memory: a report is lost, the crash goes its way.
        return E_FAIL;
    }
}

}  // namespace BugSlayerUtil
