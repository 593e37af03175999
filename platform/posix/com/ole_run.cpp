#include "platform/com_ptr.h"

HRESULT OleRun(LPUNKNOWN pUnknown) {
    void* raw = nullptr;
    if (FAILED(pUnknown->QueryInterface(IID_IRunnableObject, &raw))) {
        return S_OK;
    }
    const com_ptr<IRunnableObject> runnable(static_cast<IRunnableObject*>(raw), false);
    return runnable->Run(nullptr);
}
