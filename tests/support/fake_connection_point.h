#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/com_object.h"
#include "tests/support/host_record.h"

namespace test {

// A connection point that records `kind("name").Advise(cookie)` and `.Unadvise(cookie)`. Cookies count
// up from 1.
class FakeConnectionPoint : public platform::com_root<IConnectionPoint> {
public:
    FakeConnectionPoint(fake_host host, std::string kind, CString name, const IID& iid)
        : m_host(std::move(host)), m_kind(std::move(kind)), m_name(std::move(name)), m_iid(iid) {}

    // False: sinks are held without a reference, as a careless host would.
    bool count_sinks = true;

    // How many sinks are advised now.
    std::size_t size() const { return m_sinks.size(); }

    // The sinks as T, counted, in the order of their advising.
    template <class T>
    std::vector<com_ptr<T>> sinks() const {
        std::vector<com_ptr<T>> all;
        for (const auto& [cookie, sink] : m_sinks) {
            all.push_back(com_ptr<T>(static_cast<T*>(sink)));
        }
        return all;
    }

    STDMETHODIMP GetConnectionInterface(IID* pIID) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** ppCPC) override;
    STDMETHODIMP Advise(IUnknown* pUnkSink, DWORD* pdwCookie) override;
    STDMETHODIMP Unadvise(DWORD dwCookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** ppEnum) override;

protected:
    ~FakeConnectionPoint() override;

private:
    fake_host m_host;
    std::string m_kind;
    CString m_name;
    IID m_iid;
    DWORD m_next = 1;
    std::map<DWORD, IUnknown*> m_sinks;
};

}  // namespace test
