#include "charting/orderdeck/src/root/UILocker.h"

#include "diagnostics/BugSlayerUtil.h"

namespace SW {

namespace {

constexpr LONG s_lock = 4;
constexpr LONG s_unlock = 5;

void tell(SW::IOnCommand* sink, LONG command, const _variant_t& parameter) {
    const HRESULT hr = sink->Execute(command, parameter);
    BS_ASSERT_TEXT(hr == S_OK, "hr == ((HRESULT)0L)");
}

}  // namespace

// Only the unlock names the window: the host matches the two by their order.
CUILocker::CUILocker(SW::IOnCommand* pOnCommand, HWND hWnd) : m_pOnCommand(pOnCommand), m_hWnd(hWnd) {
    if (m_pOnCommand) {
        tell(m_pOnCommand.get(), s_lock, _variant_t());
    }
}

CUILocker::~CUILocker() {
    if (m_pOnCommand) {
        const auto low = static_cast<LONG>(reinterpret_cast<ULONG_PTR>(m_hWnd) & 0xFFFFFFFF);
        tell(m_pOnCommand.get(), s_unlock, _variant_t(low));
    }
}

}  // namespace SW
