// The native build's share of the platform's main header: types, codes, flags of ports, and the few functions
// of a process and thread that have one meaning everywhere.
#pragma once

#include "winerror.h"
#include "wtypes.h"

#define INFINITE 0xFFFFFFFFU
#define WAIT_OBJECT_0 0U
#define WAIT_ABANDONED 0x80U
#define WAIT_ABANDONED_0 0x80U
#define WAIT_TIMEOUT 258U
#define WAIT_FAILED 0xFFFFFFFFU

#define MAX_PATH 260

#define WM_NULL 0x0000
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_TIMER 0x0113
#define WM_COMMAND 0x0111
#define WM_USER 0x0400
#define WM_APP 0x8000

#define MB_OK 0x00000000U
#define MB_OKCANCEL 0x00000001U
#define MB_ABORTRETRYIGNORE 0x00000002U
#define MB_YESNOCANCEL 0x00000003U
#define MB_YESNO 0x00000004U
#define MB_RETRYCANCEL 0x00000005U
#define MB_ICONHAND 0x00000010U
#define MB_ICONSTOP MB_ICONHAND
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONQUESTION 0x00000020U
#define MB_ICONEXCLAMATION 0x00000030U
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONASTERISK 0x00000040U
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_DEFBUTTON1 0x00000000U
#define MB_DEFBUTTON2 0x00000100U
#define MB_APPLMODAL 0x00000000U
#define MB_SYSTEMMODAL 0x00001000U
#define MB_TASKMODAL 0x00002000U
#define MB_SETFOREGROUND 0x00010000U
#define MB_TOPMOST 0x00040000U

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7

#define TPM_LEFTALIGN 0x0000U
#define TPM_RIGHTBUTTON 0x0002U
#define TPM_TOPALIGN 0x0000U
#define TPM_NONOTIFY 0x0080U
#define TPM_RETURNCMD 0x0100U
#define MF_STRING 0x00000000U
#define MF_ENABLED 0x00000000U
#define MF_UNCHECKED 0x00000000U
#define MF_GRAYED 0x00000001U
#define MF_DISABLED 0x00000002U
#define MF_CHECKED 0x00000008U
#define MF_POPUP 0x00000010U
#define MF_BYPOSITION 0x00000400U
#define MF_SEPARATOR 0x00000800U

#define HKEY_CLASSES_ROOT \
    (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG_PTR>(-2147483647 - 1))))
#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG_PTR>(-2147483647))))
#define HKEY_LOCAL_MACHINE \
    (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG_PTR>(-2147483646))))

using REGSAM = DWORD;
#define DELETE 0x00010000
#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_NOTIFY 0x0010
#define KEY_CREATE_LINK 0x0020
#define KEY_READ 0x20019
#define KEY_WRITE 0x20006
#define KEY_ALL_ACCESS 0xF003F

#define REG_NONE 0U
#define REG_SZ 1U
#define REG_EXPAND_SZ 2U
#define REG_BINARY 3U
#define REG_DWORD 4U
#define REG_MULTI_SZ 7U
#define REG_QWORD 11U
#define REG_OPTION_NON_VOLATILE 0U
#define REG_CREATED_NEW_KEY 1U
#define REG_OPENED_EXISTING_KEY 2U

#define LOCALE_USER_DEFAULT 0x0400U
#define LOCALE_SYSTEM_DEFAULT 0x0800U
#define LOCALE_INVARIANT 0x007FU

// Both return the new value and are full barriers.
inline LONG InterlockedIncrement(LONG volatile* value) noexcept {
    return __atomic_add_fetch(value, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedDecrement(LONG volatile* value) noexcept {
    return __atomic_sub_fetch(value, 1, __ATOMIC_SEQ_CST);
}
// Both return the old value.
inline LONG InterlockedExchange(LONG volatile* value, LONG next) noexcept {
    return __atomic_exchange_n(value, next, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedCompareExchange(LONG volatile* value, LONG next, LONG expected) noexcept {
    __atomic_compare_exchange_n(value, &expected, next, false, __ATOMIC_SEQ_CST, __ATOMIC_SEQ_CST);
    return expected;
}

// The calling thread's last error; a new thread starts with ERROR_SUCCESS.
DWORD GetLastError() noexcept;
void SetLastError(DWORD error) noexcept;

// Ids as the kernel gives them: unique among the living threads and processes, never 0.
DWORD GetCurrentThreadId() noexcept;
DWORD GetCurrentProcessId() noexcept;

// A message of a thread's queue.
struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

// Units before the terminator; 0 for null.
int lstrlenW(LPCWSTR text) noexcept;
