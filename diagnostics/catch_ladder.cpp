#include "diagnostics/catch_ladder.h"

#include <exception>
#include <new>
#include <stdexcept>

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/IDebugObject.h"
#include "diagnostics/formatted_text.h"
#include "platform/process.h"

namespace BugSlayerUtil {
namespace {

CString unknown(const code_location& where) {
    return formatted_text("unknown exception; FILE - %s, LINE - %d", where.file, where.line);
}

caught_exception described(const code_location& where) {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return {E_OUTOFMEMORY, {}};
    } catch (const _com_error& error) {
        return {error.Error(), formatted_text("HRESULT - %x; FILE - %s, LINE - %d",
                                              static_cast<unsigned>(error.Error()), where.file, where.line)};
    } catch (const std::out_of_range& error) {
        return {E_INVALIDARG, formatted_text("std::out_of_range - %s; FILE - %s, LINE - %d", error.what(),
                                             where.file, where.line)};
    } catch (const std::exception& error) {
        return {E_UNEXPECTED, formatted_text("std::exception - %s; FILE - %s, LINE - %d", error.what(),
                                             where.file, where.line)};
    } catch (IDebugObject* record) {
        if (record != nullptr) {
            record->Release();
        }
        return {E_UNEXPECTED, unknown(where)};
    } catch (...) {
        return {E_UNEXPECTED, unknown(where)};
    }
}

}  // namespace

caught_exception describe_current_exception(const code_location& where) noexcept {
    const platform::last_error_keeper keeper;
    try {
        return described(where);
    } catch (...) {
        // There was no memory for the text.
        return {E_OUTOFMEMORY, {}};
    }
}

HRESULT handle_current_exception(const code_location& where) noexcept {
    const caught_exception caught = describe_current_exception(where);
    if (!caught.text.empty()) {
        trace(where, caught.text);
    }
    return caught.result;
}

}  // namespace BugSlayerUtil
