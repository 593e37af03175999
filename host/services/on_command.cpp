#include "services/on_command.h"

namespace host {
namespace {

constexpr LONG begin_modal = 4;
constexpr LONG end_modal = 5;

}  // namespace

HRESULT on_command::Execute(LONG lCommand, VARIANT vParam) noexcept {
    return guarded([&] {
        switch (lCommand) {
            case begin_modal:
                return vParam.vt == VT_EMPTY ? begin() : E_INVALIDARG;
            case end_modal:
                return vParam.vt == VT_I4 ? end() : E_INVALIDARG;
            default:
                return E_NOTIMPL;
        }
    });
}

HRESULT on_command::begin() {
    if (m_depth++ == 0) {
        m_locked(true);
    }
    return S_OK;
}

HRESULT on_command::end() {
    if (m_depth == 0) {
        return E_UNEXPECTED;
    }
    if (--m_depth == 0) {
        m_locked(false);
    }
    return S_OK;
}

}  // namespace host
