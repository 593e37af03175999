#include "unicomp/Simples/interface/settings_root.h"

#include "platform/resources.h"

namespace Unicomp {

CString settings_root() {
    const CString company = platform::main_version_string(L"CompanyName");
    const CString product = platform::main_version_string(L"ProductName");
    if (company.empty() || product.empty()) {
        return {};
    }
    return L"SOFTWARE\\" + company + L"\\" + product;
}

}  // namespace Unicomp
