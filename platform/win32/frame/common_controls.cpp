#include "platform/win32/frame/common_controls.h"

#include <commctrl.h>

#include "platform/win32/frame/module_instance.h"

namespace frame {

namespace {

// Made once and kept: windows of the module may be made at any time.
HANDLE module_context() {
    static const HANDLE context = [] {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(module_instance(), path, MAX_PATH);
        ACTCTXW request = {};
        request.cbSize = sizeof(request);
        request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        request.lpSource = path;
        request.hModule = module_instance();
        request.lpResourceName = MAKEINTRESOURCEW(2);
        return CreateActCtxW(&request);
    }();
    return context;
}

}  // namespace

common_controls_scope::common_controls_scope() {
    const HANDLE context = module_context();
    m_active = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &m_cookie) != FALSE;
    const INITCOMMONCONTROLSEX classes = {
        sizeof(classes), ICC_TAB_CLASSES | ICC_UPDOWN_CLASS | ICC_DATE_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
}

common_controls_scope::~common_controls_scope() {
    if (m_active) {
        DeactivateActCtx(0, m_cookie);
    }
}

}  // namespace frame
