#include "diagnostics/AsserterClass.h"

#include "diagnostics/debug_record.h"

namespace BugSlayerUtil {
namespace {

// Shows the library a block that dies with the report, and takes it back before the record is released.
class lent_block {
public:
    lent_block(debug_record& record, const platform::exception_block& block) noexcept : m_record(record) {
        m_record.SetAddress(L"$EXCEPTION_POINTERS", block.pointers);
    }
    ~lent_block() { m_record.SetAddress(L"$EXCEPTION_POINTERS", nullptr); }
    lent_block(const lent_block&) = delete;
    lent_block& operator=(const lent_block&) = delete;

private:
    debug_record& m_record;
};

}  // namespace

AsserterClass::AsserterClass(const code_location& where, int group) noexcept
    : TracerClass(where, {.group = group}), m_dwSavedLastError(GetLastError()) {}

HRESULT AsserterClass::Report(const CString& text, std::optional<HRESULT> hr) noexcept {
    const platform::last_error_keeper keeper;
    if (!client().ReadyObject()) {
        return E_FAIL;
    }
    struct {
        AsserterClass& self;
        const CString& text;
        std::optional<HRESULT> hr;
        HRESULT result;
    } call{*this, text, hr, E_FAIL};
    const auto write = [](const platform::exception_block& block, void* argument) noexcept {
        auto& asked = *static_cast<decltype(call)*>(argument);
        asked.result = asked.self.Write(asked.text, asked.hr, block);
    };
    platform::with_context_of_this_thread(0, write, &call);
    return call.result;
}

HRESULT AsserterClass::Write(const CString& text, std::optional<HRESULT> hr,
                             const platform::exception_block& block) noexcept {
    try {
        debug_record record(client().ReadyObject());
        if (record.Create() != S_OK) {
            return E_FAIL;
        }
        record.SetMark(L"<<ASSERT>>");
        record.SetText(L"$Type", L"ASSERT");
        if (m_dwSavedLastError != 0) {
            record.SetUnsigned(L"Last Error Code", m_dwSavedLastError);
        }
        if (hr.has_value()) {
            record.SetResult(L"HRESULT", *hr);
        }
        if (!text.empty()) {
            record.SetText(L"Description", text);
        }
        record.SetUnsigned(L"Thread ID", GetCurrentThreadId());
        record.SetSource(where(), group());
        record.SetFunction(where());
        const lent_block lent(record, block);
        return record.Process();
    } catch (...) {
        // Out of memory: a report is lost, the program is not.
        return E_FAIL;
    }
}

}  // namespace BugSlayerUtil
