#include "services/disconnect_confirmer.h"

#include "com/text.h"

namespace host {
namespace {

// A box with more lines than this would not fit the screen.
constexpr std::size_t most_lines = 10;

std::string question_text(const std::string& name, const std::vector<order>& live) {
    std::string text = name + " has live orders:\n";
    for (std::size_t index = 0; index < live.size() && index < most_lines; ++index) {
        text += "\n" + describe(live[index].request);
    }
    if (live.size() > most_lines) {
        text += "\nand " + std::to_string(live.size() - most_lines) + " more";
    }
    return text + "\n\nThey stay at the exchange. Disconnect?";
}

}  // namespace

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
        return live.empty() || m_ask(owner, question_text(name, live)) ? S_OK : S_FALSE;
    });
}

}  // namespace host
