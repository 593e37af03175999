// Subscriptions to the events of a COM object.
#pragma once

#include <utility>

#include "platform/com_ptr.h"

namespace platform {

inline constexpr DWORD not_advised = 0xFFFFFFFF;

// Ends a subscription: gives the cookie back, marks it as not advised and releases the point. Gives the
// result of the point, S_OK when there was nothing to end.
inline HRESULT unadvise(com_ptr<IConnectionPoint>& point, DWORD& cookie) {
    com_ptr<IConnectionPoint> old;
    old.swap(point);
    const DWORD old_cookie = std::exchange(cookie, not_advised);
    return old ? old->Unadvise(old_cookie) : S_OK;
}

// Subscribes a sink to the events of an interface, after ending the subscription that point and cookie
// hold; what the ending gives counts for nothing, since a host that no longer knows the old cookie has
// nothing left to undo. E_INVALIDARG when the source or the sink is null or the source gives no connection
// points, with the old subscription left alone; E_POINTER for a search that succeeds and finds no point;
// otherwise the result of the search or of the point. After a failure there is no subscription; any success
// is one that is to be ended.
inline HRESULT advise(IUnknown* source, IUnknown* sink, REFIID events, com_ptr<IConnectionPoint>& point,
                      DWORD& cookie) {
    com_ptr<IConnectionPointContainer> container;
    if (source != nullptr) {
        source->QueryInterface(__uuidof(IConnectionPointContainer), static_cast<void**>(receive(container)));
    }
    if (!container || sink == nullptr) {
        return E_INVALIDARG;
    }
    unadvise(point, cookie);
    com_ptr<IConnectionPoint> found;
    HRESULT hr = container->FindConnectionPoint(events, receive(found));
    if (SUCCEEDED(hr)) {
        hr = found ? S_OK : E_POINTER;
    }
    if (SUCCEEDED(hr)) {
        DWORD new_cookie = not_advised;
        hr = found->Advise(sink, &new_cookie);
        if (SUCCEEDED(hr)) {
            point = found;
            cookie = new_cookie;
        }
    }
    return hr;
}

}  // namespace platform
