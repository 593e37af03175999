#include "services/disconnect_confirmer.h"

#include "com/text.h"

namespace host {

HRESULT disconnect_confirmer::Confirm(LONG hOwner, ITC_TradingProfile* pProfile) noexcept {
    return guarded([&] {
        if (pProfile == nullptr) {
            return E_POINTER;
        }
        BSTR raw = nullptr;
        _com_util::CheckError(pProfile->get_Name(&raw));
        const _bstr_t owned(raw, false);
        const std::string name = bstr_text(raw);
        const std::vector<order> live = m_desk.live_orders(name);
        // Window handles fit 32 bits and are sign-extended back.
        const HWND owner = reinterpret_cast<HWND>(static_cast<LONG_PTR>(hOwner));
        return live.empty() || m_ask(owner, name, live) ? S_OK : S_FALSE;
    });
}

}  // namespace host
