// Subscriptions to the events of a COM object.
#pragma once

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
// hold. E_INVALIDARG when the source or the sink is null or the source has no connection points.
inline HRESULT advise(IUnknown* source, IUnknown* sink, REFIID events, com_ptr<IConnectionPoint>& point,
                      DWORD& cookie) {
    const com_ptr<IConnectionPointContainer> container = query<IConnectionPointContainer>(source);
    if (!container || sink == nullptr) {
        return E_INVALIDARG;
    }
    unadvise(point, cookie);
    com_ptr<IConnectionPoint> found;
    HRESULT hr = container->FindConnectionPoint(events, receive(found));
    if (SUCCEEDED(hr) && found) {
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
