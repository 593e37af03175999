#pragma once

#include <atomic>

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/code_location.h"
#include "platform/text.h"

namespace BugSlayerUtil {

// What a traced scope reports beside its place. The pointers stay the caller's and outlive the scope.
struct trace_options {
    int group = 0;
    bool traceScope = false;   // a record on entry and one on exit
    bool measureTime = false;  // the delay of the scope, in milliseconds
    const void* object = nullptr;
    std::atomic<int>* count = nullptr;     // calls, raised on entry
    std::atomic<double>* total = nullptr;  // milliseconds over all calls, raised on exit
    const wchar_t* outFile = nullptr;      // name of a file that the records are meant for
};

// A place in the code that reports, for the time of one scope. The thread's last error is the same
// before it and after it. Nothing of it throws.
class TracerClass {
public:
    explicit TracerClass(const code_location& where, const trace_options& options = {}) noexcept;
    ~TracerClass();
    TracerClass(const TracerClass&) = delete;
    TracerClass& operator=(const TracerClass&) = delete;

    // Writes a trace record with a message and gives the library's result, 0x80004005 without one.
    HRESULT Message(const CString& text) noexcept;

protected:
    const code_location& where() const noexcept { return m_where; }
    int group() const noexcept { return m_options.group; }
    BugSlayerClient& client() const noexcept { return m_client; }

private:
    struct contents;

    HRESULT Write(const contents& what) noexcept;

    const DWORD m_dwLastError;
    BugSlayerClient& m_client;
    const code_location m_where;
    const trace_options m_options;
    double m_start = 0;
};

}  // namespace BugSlayerUtil
