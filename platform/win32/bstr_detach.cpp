#include "platform/bstr_detach.h"

namespace {

// How many share a text. The header keeps its count to itself, and its Detach, which may not throw by its
// declaration, raises an error all the same: so the count is read first.
unsigned long holders(const _bstr_t& text);

template <auto Data>
struct count_reader {
    friend unsigned long holders(const _bstr_t& text) {
        return text.*Data != nullptr ? (text.*Data)->RefCount() : 0;
    }
};
template struct count_reader<&_bstr_t::m_Data>;

}  // namespace

namespace platform {

BSTR detach(_bstr_t& text) {
    if (holders(text) != 1) {
        _com_issue_error(E_POINTER);
    }
    return text.Detach();
}

}  // namespace platform
