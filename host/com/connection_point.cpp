#include "com/connection_point.h"

#include <olectl.h>

#include <algorithm>

namespace host {

HRESULT connection_point::GetConnectionInterface(IID* out) noexcept {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = m_events;
    return S_OK;
}

HRESULT connection_point::GetConnectionPointContainer(IConnectionPointContainer** out) noexcept {
    if (out == nullptr) {
        return E_POINTER;
    }
    *out = nullptr;
    if (m_container == nullptr) {
        return E_UNEXPECTED;
    }
    hand_out(m_container, out);
    return S_OK;
}

HRESULT connection_point::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    return guarded([&] {
        if (sink == nullptr || cookie == nullptr) {
            return E_POINTER;
        }
        *cookie = 0;
        IUnknown* events = nullptr;
        if (FAILED(sink->QueryInterface(m_events, reinterpret_cast<void**>(&events)))) {
            return CONNECT_E_CANNOTCONNECT;
        }
        m_connections.push_back({ref<IUnknown>(events, false), ++m_last_cookie});
        *cookie = m_last_cookie;
        return S_OK;
    });
}

HRESULT connection_point::Unadvise(DWORD cookie) noexcept {
    const auto found = std::ranges::find(m_connections, cookie, &connection::cookie);
    if (found == m_connections.end()) {
        return CONNECT_E_NOCONNECTION;
    }
    // The sink goes last: its destructor may come back here.
    const ref<IUnknown> sink = found->sink;
    m_connections.erase(found);
    return S_OK;
}

HRESULT connection_point::EnumConnections(IEnumConnections** out) noexcept {
    using connections = enumerator<IEnumConnections, CONNECTDATA, connection>;
    return guarded([&] {
        if (out == nullptr) {
            return E_POINTER;
        }
        hand_out<IEnumConnections>(make<connections>(m_connections).get(), out);
        return S_OK;
    });
}

}  // namespace host
