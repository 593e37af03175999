#include "diagnostics/TracerClass.h"

#include "diagnostics/debug_record.h"
#include "platform/clock.h"

namespace BugSlayerUtil {
namespace {

enum ident { exit_of_scope = -1, message_in_scope = 0, entry_to_scope = 1 };

double now() {
    return platform::port<platform::clock>::get().milliseconds();
}

}  // namespace

struct TracerClass::contents {
    ident what;
    const CString& message;
    double delay = 0;
};

TracerClass::TracerClass(const code_location& where, const trace_options& options) noexcept
    : m_dwLastError(GetLastError()), m_client(Client::Get()), m_where(where), m_options(options) {
    if (m_options.count != nullptr) {
        ++*m_options.count;
    }
    if (m_options.traceScope) {
        Write({entry_to_scope, {}});
    }
    if (m_options.measureTime) {
        m_start = now();
    }
    SetLastError(m_dwLastError);
}

TracerClass::~TracerClass() {
    double delay = 0;
    if (m_options.measureTime) {
        delay = now() - m_start;
        if (m_options.total != nullptr) {
            *m_options.total += delay;
        }
    }
    if (m_options.traceScope) {
        Write({exit_of_scope, {}, delay});
    }
    SetLastError(m_dwLastError);
}

HRESULT TracerClass::Message(const CString& text) noexcept {
    return Write({message_in_scope, text});
}

HRESULT TracerClass::Write(const contents& what) noexcept {
    const platform::last_error_keeper keeper;
    try {
        debug_record record(m_client.ReadyObject());
        if (record.Create() != S_OK) {
            return E_FAIL;
        }
        record.SetText(L"$Type", L"TRACE");
        if (!what.message.empty()) {
            record.SetText(L"$Message", what.message);
        }
        record.SetInt(L"$Ident", what.what);
        record.SetSource(m_where, m_options.group);
        record.SetUnsigned(L"Thread ID", GetCurrentThreadId());
        record.SetFunction(m_where);
        if (m_options.object != nullptr) {
            record.SetAddress(L"Object", m_options.object);
        }
        if (what.delay != 0) {
            record.SetReal(L"$Delay", what.delay);
        }
        if (const int count = m_options.count != nullptr ? m_options.count->load() : 0; count != 0) {
            record.SetInt(L"Count", count);
        }
        if (const double total = m_options.total != nullptr ? m_options.total->load() : 0; total != 0) {
            record.SetReal(L"$TotalTime", total);
        }
        if (m_options.outFile != nullptr) {
            record.SetText(L"OutFile", m_options.outFile);
        }
        return record.Process();
    } catch (...) {
        // Out of memory: a report is lost, the program is not.
        return E_FAIL;
    }
}

}  // namespace BugSlayerUtil
