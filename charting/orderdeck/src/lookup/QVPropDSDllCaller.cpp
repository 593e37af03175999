#include "charting/orderdeck/src/lookup/QVPropDSDllCaller.h"

#include "TradingCenter.h"
#include "platform/com_ptr.h"
#include "platform/module.h"

namespace OV_OrderDeck {
namespace {

constexpr wchar_t library_name[] = L"PropDS2_x64.dll";
constexpr char export_name[] = "CreateResizablePropertySheet";

}  // namespace

HMODULE CQVPropDSDllCaller::_library() {
    if (m_dll != nullptr) {
        return m_dll;
    }
    if (HMODULE const loaded = platform::find_loaded_library(library_name)) {
        return loaded;
    }
    m_dll = platform::load_library(library_name);
    return m_dll;
}

HRESULT CQVPropDSDllCaller::CreateObject(REFIID iid, void** object) {
    *object = nullptr;
    HMODULE const library = _library();
    if (library == nullptr) {
        return HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
    }
    const auto create =
        reinterpret_cast<CreateResizablePropertySheet_t>(platform::find_export(library, export_name));
    if (create == nullptr) {
        return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    }
    com_ptr<IUnknown> sheet;
    const HRESULT hr = create(platform::receive(sheet));
    if (FAILED(hr)) {
        return hr;
    }
    return sheet ? sheet->QueryInterface(iid, object) : E_POINTER;
}

}  // namespace OV_OrderDeck
