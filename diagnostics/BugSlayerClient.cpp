#include "diagnostics/BugSlayerClient.h"

#include <cstdio>

#include "diagnostics/crash_handlers.h"
#include "diagnostics/debug_record.h"
#include "diagnostics/init_failure.h"
#include "diagnostics/library_search.h"
#include "platform/module.h"
#include "platform/process.h"

namespace BugSlayerUtil {

HRESULT BugSlayerClient::LoadDebugObject() noexcept {
    const HMODULE library = find_debug_library();
    if (library == nullptr) {
        return E_FAIL;
    }
    const auto init =
        reinterpret_cast<BS_InitObjectFunction>(platform::find_export(library, "BS_InitObject"));
    if (init == nullptr) {
        return E_FAIL;
    }
    const HRESULT result = init(platform::receive(debugObject));
    if (FAILED(result)) {
        debugObject.reset();
        return result;
    }
    return debugObject ? S_OK : E_FAIL;
}

HRESULT BugSlayerClient::Initialize() noexcept {
    const platform::last_error_keeper keeper;
    const std::lock_guard guard(m_lock);
    if (initTried) {
        return ready ? S_OK : E_FAIL;
    }
    initTried = true;
    ready = false;
    showInitFailure = init_failure_is_shown();
    const HRESULT result = Connect();
    if (FAILED(result)) {
        GiveUp();
    }
    return result;
}

HRESULT BugSlayerClient::Connect() noexcept {
    LoadDebugObject();
    if (!debugObject) {
        return E_FAIL;
    }
    ready = true;
    const HRESULT result = SendIdentity();
    if (FAILED(result)) {
        wchar_t address[32];
        std::swprintf(address, std::size(address), L"%016llx",
                      static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(this)));
        debugObject->Failure(address);
    }
    return result;
}

HRESULT BugSlayerClient::SendIdentity() noexcept {
    try {
        debug_record record(debugObject);
        const HRESULT result = record.Create();
        if (result != S_OK) {
            return E_FAIL;
        }
        record.SetText(L"LogDirectory", CString());
        record.SetAddress(L"ModuleAddr", this);
        record.SetText(L"ModuleName", platform::file_name_of(platform::this_module_path()));
        record.SetBool(L"ReleaseMode", true);
        record.SetText(L"ClientVersion", L"2.2 05.05.2006");
        return record.Send(L"INIT");
    } catch (...) {
        return E_FAIL;
    }
}

void BugSlayerClient::GiveUp() noexcept {
    if (showInitFailure) {
        show_init_failure();
    }
    initTried = false;
    ready = false;
    debugObject.reset();
}

HRESULT BugSlayerClient::Terminate() noexcept {
    const platform::last_error_keeper keeper;
    const com_ptr<IDebugObject> object = ReadyObject();
    if (!object) {
        return E_FAIL;
    }
    object->Command(nullptr, L"TERMINATE", nullptr, 0);
    platform::terminate_process(static_cast<UINT>(-1));
}

HRESULT BugSlayerClient::IsClean() noexcept {
    return Send(L"IS CLEAN");
}

HRESULT BugSlayerClient::DoClean() noexcept {
    return Send(L"DO CLEAN");
}

HRESULT BugSlayerClient::ReportDialog() noexcept {
    return Send(L"REPORTDIALOG");
}

HRESULT BugSlayerClient::TraceEnabled() noexcept {
    return Send(L"TRACEENABLED");
}

com_ptr<IDebugObject> BugSlayerClient::ReadyObject() noexcept {
    if (platform::process_is_ending()) {
        return {};
    }
    const std::lock_guard guard(m_lock);
    Initialize();
    return ready ? debugObject : com_ptr<IDebugObject>();
}

HRESULT BugSlayerClient::Send(const wchar_t* command) noexcept {
    const platform::last_error_keeper keeper;
    const com_ptr<IDebugObject> object = ReadyObject();
    return object ? object->Command(nullptr, command, nullptr, 0) : E_FAIL;
}

void BugSlayerClient::Act(HRESULT result, UINT exitCode) noexcept {
    if (result == 1) {
        platform::debug_break();
    } else if (result == E_ABORT) {
        Send(L"DEINIT");
        platform::terminate_process(exitCode);
    }
}

void BugSlayerClient::CleanUp() noexcept {
    const platform::last_error_keeper keeper;
    if (platform::process_is_ending()) {
        // The other threads ended wherever they were, a lock in their hands perhaps, and the library's own
        // data may be gone already: no lock is taken, and the library is not called any more.
        Forget();
        return;
    }
    const std::lock_guard guard(m_lock);
    remove_crash_handlers();
    if (ready) {
        debugObject->Command(nullptr, L"DEINIT", nullptr, 0);
        debugObject.reset();
    }
    Forget();
}

void BugSlayerClient::Forget() noexcept {
    debugObject.detach();
    ready = false;
    initTried = true;
}

}  // namespace BugSlayerUtil
