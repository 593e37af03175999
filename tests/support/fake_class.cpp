#include "tests/support/fake_class.h"

namespace test {

namespace {

class factory : public platform::com_root<IClassFactory> {
public:
    factory(fake_host host, CString name, fake_class::maker make)
        : m_host(std::move(host)), m_name(std::move(name)), m_make(std::move(make)) {}

    STDMETHODIMP CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObject) override {
        *ppvObject = nullptr;
        if (pUnkOuter != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        const auto told = m_host.enter("Class", m_name, "CreateInstance");
        if (FAILED(told.hr)) {
            return told.hr;
        }
        const com_ptr<IUnknown> object = m_make();
        return object ? object->QueryInterface(riid, ppvObject) : E_OUTOFMEMORY;
    }

    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    fake_host m_host;
    CString m_name;
    fake_class::maker m_make;
};

}  // namespace

fake_class::fake_class(fake_host host, const CLSID& clsid, CString name, maker make) {
    const auto object = platform::make_com<factory>(std::move(host), std::move(name), std::move(make));
    _com_util::CheckError(
        CoRegisterClassObject(clsid, object.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie));
}

fake_class::~fake_class() {
    CoRevokeClassObject(m_cookie);
}

}  // namespace test
