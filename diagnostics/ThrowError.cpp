#include "diagnostics/ThrowError.h"

#include <algorithm>
#include <iterator>

#include "diagnostics/debug_record.h"

namespace BugSlayerUtil {

void ThrowError::React(const CString& text, std::optional<HRESULT>) {
    if (com_ptr<IDebugObject> record = Write(text)) {
        throw record.detach();
    }
    thread_local wchar_t thrown[256];
    const std::size_t length = std::min(text.size(), std::size(thrown) - 1);
    thrown[text.copy(thrown, length)] = L'\0';
    throw static_cast<wchar_t*>(thrown);
}

com_ptr<IDebugObject> ThrowError::Write(const CString& text) noexcept {
    const platform::last_error_keeper keeper;
    try {
        debug_record record(client().ReadyObject());
        if (record.Create() != S_OK) {
            return {};
        }
        record.SetMark(L"<<ERROR>>");
        record.SetText(L"$Type", L"CREATE ERROR");
        // The other kinds call it "Thread ID"; readers of this kind look for this name.
        record.SetUnsigned(L"$ThreadID", GetCurrentThreadId());
        if (saved_last_error() != 0) {
            record.SetUnsigned(L"Last Error Code", saved_last_error());
        }
        if (!text.empty()) {
            record.SetText(L"Description", text);
        }
        record.SetSource(where(), group());
        record.SetFunction(where());
        record.Process();
        return record.Detach();
    } catch (...) {
        // Out of memory: the text is thrown instead.
        return {};
    }
}

}  // namespace BugSlayerUtil
