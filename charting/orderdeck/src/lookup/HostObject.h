#pragma once

#include "platform/com_create.h"

namespace OV_OrderDeck {

// A running object of one of the host's symbol classes, on the calling thread's apartment. Null when the
// class has no such interface; throws _com_error for any other failure.
template <class T>
com_ptr<T> create_host_object(REFCLSID clsid) {
    com_ptr<T> object;
    const HRESULT hr = platform::create_running(clsid, object);
    if (FAILED(hr) && hr != E_NOINTERFACE) {
        _com_issue_error(hr);
    }
    return object;
}

}  // namespace OV_OrderDeck
