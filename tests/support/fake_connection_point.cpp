#include "tests/support/fake_connection_point.h"

namespace test {

FakeConnectionPoint::~FakeConnectionPoint() {
    if (count_sinks) {
        for (const auto& [cookie, sink] : m_sinks) {
            sink->Release();
        }
    }
}

HRESULT FakeConnectionPoint::GetConnectionInterface(IID* pIID) {
    *pIID = m_iid;
    return S_OK;
}

HRESULT FakeConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** ppCPC) {
    *ppCPC = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeConnectionPoint::Advise(IUnknown* pUnkSink, DWORD* pdwCookie) {
    const auto told = m_host.enter(m_kind, m_name, "Advise", std::to_string(m_next));
    if (told.hr != S_OK) {
        if (told.write) {
            *pdwCookie = m_next++;
        }
        return told.hr;
    }
    void* sink = nullptr;
    if (pUnkSink == nullptr || FAILED(pUnkSink->QueryInterface(m_iid, &sink))) {
        return CONNECT_E_CANNOTCONNECT;
    }
    const auto kept = static_cast<IUnknown*>(sink);
    if (!count_sinks) {
        kept->Release();
    }
    *pdwCookie = m_next++;
    m_sinks[*pdwCookie] = kept;
    return S_OK;
}

HRESULT FakeConnectionPoint::Unadvise(DWORD dwCookie) {
    const auto told = m_host.enter(m_kind, m_name, "Unadvise", std::to_string(dwCookie));
    const auto found = m_sinks.find(dwCookie);
    if (found == m_sinks.end()) {
        return told.hr != S_OK ? told.hr : CONNECT_E_NOCONNECTION;
    }
    IUnknown* const sink = found->second;
    m_sinks.erase(found);
    if (count_sinks) {
        sink->Release();
    }
    return told.hr;
}

HRESULT FakeConnectionPoint::EnumConnections(IEnumConnections** ppEnum) {
    *ppEnum = nullptr;
    return E_NOTIMPL;
}

}  // namespace test
