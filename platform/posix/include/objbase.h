// Apartments, class objects, task memory and the text form of ids.
#pragma once

#include "objidl.h"
#include "unknwn.h"

#define CLSCTX_INPROC_SERVER 0x1
#define CLSCTX_INPROC_HANDLER 0x2
#define CLSCTX_LOCAL_SERVER 0x4
#define CLSCTX_REMOTE_SERVER 0x10
#define CLSCTX_ALL 0x17

#define COINIT_APARTMENTTHREADED 0x2
#define COINIT_MULTITHREADED 0x0

#define REGCLS_SINGLEUSE 0
#define REGCLS_MULTIPLEUSE 1

// Counted per thread: S_OK the first time, S_FALSE again, RPC_E_CHANGED_MODE (and no count) when the
// thread already has an apartment of the other kind. An uninitialise too many is ignored; the last one
// of a single-threaded apartment revokes the classes that were registered in it.
HRESULT CoInitialize(LPVOID reserved) noexcept;
HRESULT CoInitializeEx(LPVOID reserved, DWORD dwCoInit) noexcept;
void CoUninitialize() noexcept;

// The table of classes is one for all threads of the process: a class that one thread registered is
// created by every other, with no proxy in between. A factory is held until it is revoked, which is to
// be done in the apartment that registered it, else RPC_E_WRONG_THREAD. An unknown cookie is
// E_INVALIDARG.
HRESULT CoRegisterClassObject(REFCLSID rclsid, LPUNKNOWN pUnk, DWORD dwClsContext, DWORD flags,
                              LPDWORD lpdwRegister) noexcept;
HRESULT CoRevokeClassObject(DWORD dwRegister) noexcept;

// A class without a factory for the context is REGDB_E_CLASSNOTREG. A thread without an apartment
// counts to the multithreaded one while some thread keeps that; otherwise CO_E_NOTINITIALIZED, as for
// the two operations above. The factory gets the outer object as it is and decides on aggregation.
HRESULT CoGetClassObject(REFCLSID rclsid, DWORD dwClsContext, LPVOID pvReserved, REFIID riid, LPVOID* ppv);
HRESULT CoCreateInstance(REFCLSID rclsid, LPUNKNOWN pUnkOuter, DWORD dwClsContext, REFIID riid, LPVOID* ppv);

LPVOID CoTaskMemAlloc(SIZE_T cb) noexcept;
LPVOID CoTaskMemRealloc(LPVOID pv, SIZE_T cb) noexcept;
void CoTaskMemFree(LPVOID pv) noexcept;

HRESULT CoCreateGuid(GUID* pguid) noexcept;
// The text is the caller's, to be freed with CoTaskMemFree.
HRESULT StringFromCLSID(REFCLSID rclsid, LPOLESTR* lplpsz) noexcept;
HRESULT StringFromIID(REFIID rclsid, LPOLESTR* lplpsz) noexcept;
// Units written with the terminator, 39, or 0 when the buffer is shorter.
int StringFromGUID2(REFGUID rguid, LPOLESTR lpsz, int cchMax) noexcept;
// Braces are required, letters count in either case. A null text gives the null id. Else CO_E_CLASSSTRING
// for a class and, for an interface, E_INVALIDARG of a wrong length and CO_E_IIDSTRING of a wrong text.
HRESULT CLSIDFromString(LPCOLESTR lpsz, CLSID* pclsid) noexcept;
HRESULT IIDFromString(LPCOLESTR lpsz, IID* lpiid) noexcept;
