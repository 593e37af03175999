#include "services/symbol_mapping.h"

#include "com/text.h"
#include "market/instruments.h"

namespace host {

HRESULT symbol_mapping_service::ShowDialog(ULONGLONG hOwner, BSTR sProfileName) noexcept {
    return guarded([&] {
        m_show(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(hOwner)), bstr_text(sProfileName));
        return S_OK;
    });
}

}  // namespace host
