// Objects that are started before use.
#pragma once

#include "unknwn.h"

struct IBindCtx;

struct IRunnableObject : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetRunningClass(CLSID* lpClsid) = 0;
    virtual HRESULT STDMETHODCALLTYPE Run(IBindCtx* pbc) = 0;
    virtual BOOL STDMETHODCALLTYPE IsRunning() = 0;
    virtual HRESULT STDMETHODCALLTYPE LockRunning(BOOL fLock, BOOL fLastUnlockCloses) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetContainedObject(BOOL fContained) = 0;
};
DEFINE_GUID(IID_IRunnableObject, 0x00000126, 0x0000, 0x0000, 0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46);
__CRT_UUID_DECL(IRunnableObject, 0x00000126, 0x0000, 0x0000, 0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
