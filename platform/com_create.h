#pragma once

#include "platform/com_ptr.h"

namespace platform {

// Creates a class in any context, runs the object and asks it for T. Gives the first failure, that of
// the query (E_NOINTERFACE) included; the target is then null. A class that succeeds and gives no object
// has no interface either. Needs an apartment.
template <class T>
HRESULT create_running(REFCLSID clsid, com_ptr<T>& target) {
    target.reset();
    com_ptr<IUnknown> object;
    HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_ALL, __uuidof(IUnknown),
                                  static_cast<void**>(receive(object)));
    if (SUCCEEDED(hr)) {
        hr = object ? OleRun(object.get()) : E_NOINTERFACE;
    }
    return FAILED(hr) ? hr : object->QueryInterface(__uuidof(T), static_cast<void**>(receive(target)));
}

}  // namespace platform
