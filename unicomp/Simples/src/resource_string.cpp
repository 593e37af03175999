#include "unicomp/Simples/interface/resource_string.h"

#include "diagnostics/BugSlayerUtil.h"
#include "platform/resources.h"

namespace resource_string {

template <>
CString resourse_2_string_impl<CString>(UINT id, HMODULE module) {
    auto found = platform::load_string(id, module);
    if (!found) {
        BS_ASSERT(0);
        return {};
    }
    return *std::move(found);
}

template <>
_bstr_t resourse_2_string_impl<_bstr_t>(UINT id, HMODULE module) {
    return {platform::new_bstr(resourse_2_string_impl<CString>(id, module)), false};
}

}  // namespace resource_string
