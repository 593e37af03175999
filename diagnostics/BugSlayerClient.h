#pragma once

#include <mutex>

#include "diagnostics/BugSlayerInitializer.h"
#include "diagnostics/IDebugObject.h"
#include "platform/com_ptr.h"

namespace BugSlayerUtil {

// The connection to the diagnostics library: one for each module. Every operation may be called on any
// thread, throws nothing, and keeps the thread's last error. Those from Terminate to TraceEnabled connect
// first if needed and give 0x80004005 while there is no library. The order of the virtual operations is
// fixed.
class BugSlayerClient {
public:
    BugSlayerClient() = default;
    BugSlayerClient(const BugSlayerClient&) = delete;
    BugSlayerClient& operator=(const BugSlayerClient&) = delete;

    // Finds the library and has it make its object.
    virtual HRESULT LoadDebugObject() noexcept;

    // Connects, once. An attempt that failed is repeated by the next call.
    virtual HRESULT Initialize() noexcept;

    // Tells the library, then ends this process with exit code -1. Ends nothing without a library.
    virtual HRESULT Terminate() noexcept;

    virtual HRESULT IsClean() noexcept;
    virtual HRESULT DoClean() noexcept;
    virtual HRESULT ReportDialog() noexcept;
    virtual HRESULT TraceEnabled() noexcept;

    virtual ~BugSlayerClient() = default;

    // The library's object, connecting first if needed; null while there is none, and in a process that
    // ends.
    com_ptr<IDebugObject> ReadyObject() noexcept;

    // Does what the result of a report asks for: 1 breaks, 0x80004004 says "DEINIT" and ends this process
    // with the exit code, anything else does nothing.
    void Act(HRESULT result, UINT exitCode = static_cast<UINT>(-1)) noexcept;

    // Takes the crash handlers away and lets the library go for good; nothing is reported from then on. In
    // a process that ends it takes no lock and only forgets the library.
    void CleanUp() noexcept;

protected:
    com_ptr<IDebugObject> debugObject;
    bool initTried = false;
    bool ready = false;
    bool showInitFailure = false;

private:
    HRESULT Send(const wchar_t* command) noexcept;
    HRESULT Connect() noexcept;
    HRESULT SendIdentity() noexcept;
    void GiveUp() noexcept;
    void Forget() noexcept;

    // Held again by its owner when the library or a message box leads back here.
    std::recursive_mutex m_lock;
};

using Client = BugSlayerInitializer<BugSlayerClient, 0>;

}  // namespace BugSlayerUtil
