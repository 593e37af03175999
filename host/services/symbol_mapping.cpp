#include "services/symbol_mapping.h"

#include "com/text.h"
#include "market/instruments.h"

namespace host {

HRESULT symbol_mapping_service::ShowDialog(ULONGLONG hOwner, BSTR sProfileName) noexcept {
    return guarded([&] {
        std::string text = "Symbols of " + bstr_text(sProfileName) + " come from ";
        text += data_feed;
        text += " under the same names:\n";
        for (const instrument& one : instruments()) {
            text += "\n" + one.name + "  " + one.description;
        }
        m_show(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(hOwner)), text);
        return S_OK;
    });
}

}  // namespace host
