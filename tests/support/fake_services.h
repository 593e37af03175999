// The host's dialogs and its command sink.
#pragma once

#include "TradingCenter.h"
#include "tests/support/fake_class.h"

namespace test {

// Records `OnCommand.Execute(4, empty)` and `OnCommand.Execute(5, 1234)`; `vt(n)` for other variants.
class FakeOnCommand : public platform::com_root<IOnCommand> {
public:
    explicit FakeOnCommand(fake_host host) : m_host(std::move(host)) {}

    STDMETHODIMP Execute(LONG lCommand, VARIANT vParam) override;

private:
    fake_host m_host;
};

// A service that has to be run before use; records `kind.Run()`.
template <class Interface>
class FakeRunnable : public platform::com_root<Interface, IRunnableObject> {
public:
    FakeRunnable(fake_host host, std::string kind) : m_host(std::move(host)), m_kind(std::move(kind)) {}

    // S_OK, or what asking for the interface gives.
    HRESULT query_result = S_OK;

    STDMETHODIMP GetRunningClass(CLSID* lpClsid) override {
        *lpClsid = CLSID{};
        return S_OK;
    }
    STDMETHODIMP Run(IBindCtx*) override { return m_host.enter(m_kind, {}, "Run").hr; }
    STDMETHODIMP_(BOOL) IsRunning() override { return TRUE; }
    STDMETHODIMP LockRunning(BOOL, BOOL) override { return S_OK; }
    STDMETHODIMP SetContainedObject(BOOL) override { return S_OK; }

protected:
    HRESULT internal_query(REFIID iid, void** out) {
        if (IsEqualIID(iid, __uuidof(Interface)) && query_result != S_OK) {
            *out = nullptr;
            return query_result;
        }
        return platform::com_root<Interface, IRunnableObject>::internal_query(iid, out);
    }

    fake_host m_host;
    std::string m_kind;
};

// Records `DisconnectConfirmer.Confirm(owner, "profile")`.
class FakeDisconnectConfirmer : public FakeRunnable<IDisconnectConfirmer> {
public:
    explicit FakeDisconnectConfirmer(fake_host host)
        : FakeRunnable<IDisconnectConfirmer>(std::move(host), "DisconnectConfirmer") {}

    // S_FALSE refuses.
    HRESULT answer = S_OK;

    STDMETHODIMP Confirm(LONG hOwner, ITC_TradingProfile* pProfile) override;
};

// Records `ProfileEditor.Show(owner)`.
class FakeProfileEditor : public FakeRunnable<IProfileEditor> {
public:
    explicit FakeProfileEditor(fake_host host)
        : FakeRunnable<IProfileEditor>(std::move(host), "ProfileEditor") {}

    STDMETHODIMP Show(ULONGLONG hOwner) override;
};

// Records `SymbolMapping.ShowDialog(owner, "profile")`.
class FakeSymbolMapping : public platform::com_root<ISymbolMapping> {
public:
    explicit FakeSymbolMapping(fake_host host) : m_host(std::move(host)) {}

    STDMETHODIMP ShowDialog(ULONGLONG hOwner, BSTR sProfileName) override;

private:
    fake_host m_host;
};

}  // namespace test
