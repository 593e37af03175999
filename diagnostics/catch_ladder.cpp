#include <exception>
#include <new>
#include <stdexcept>

#include "diagnostics/BugSlayerUtil.h"

namespace BugSlayerUtil {

HRESULT handle_current_exception(const code_location& where) noexcept {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        // Writing a record takes memory, so nothing is written.
        return E_OUTOFMEMORY;
    } catch (const _com_error& error) {
        tracef(where, "HRESULT - %x; FILE - %s, LINE - %d", static_cast<unsigned>(error.Error()), where.file,
               where.line);
        return error.Error();
    } catch (const std::out_of_range& error) {
        tracef(where, "std::out_of_range - %s; FILE - %s, LINE - %d", error.what(), where.file, where.line);
        return E_INVALIDARG;
    } catch (const std::exception& error) {
        tracef(where, "std::exception - %s; FILE - %s, LINE - %d", error.what(), where.file, where.line);
        return E_UNEXPECTED;
    } catch (...) {
        tracef(where, "unknown exception; FILE - %s, LINE - %d", where.file, where.line);
        return E_UNEXPECTED;
    }
}

}  // namespace BugSlayerUtil
