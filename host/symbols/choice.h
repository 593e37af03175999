// What the symbol dialog begins with, and what was picked in it.
#pragma once

#include <SymbolStore.h>

#include <string>

#include "com/object.h"
#include "market/symbol_store.h"

namespace host {

// By which the dialog's page reads and writes its data.
MIDL_INTERFACE("c2d4f6a8-7b31-4e59-8c60-1f9e2d3b4a75")
symbol_picking : public IUnknown {
    virtual const symbol_store& store() const = 0;
    // The feed to show, empty for all.
    virtual const std::string& feed() const = 0;
    // What the search line begins with.
    virtual const std::string& text() const = 0;
    // The present choice, by id; 0 for none.
    virtual int present() const = 0;
    // The user's choice. Null takes it back.
    virtual void pick(const instrument* one) = 0;
};

}  // namespace host

__CRT_UUID_DECL(host::symbol_picking, 0xc2d4f6a8, 0x7b31, 0x4e59, 0x8c, 0x60, 0x1f, 0x9e, 0x2d, 0x3b, 0x4a,
                0x75)

namespace host {

// On the window's thread.
class symbol_choice
    : public object<IDataProperty, pManageSeries, IQuickRequest, IQVDlgSymbols, symbol_picking> {
public:
    // The store has to outlive the choice.
    explicit symbol_choice(const symbol_store& store) : m_store(store) {}

    // Forgets everything.
    STDMETHODIMP Prepare() noexcept override;
    // 1 takes back what was picked.
    STDMETHODIMP OnDialogEnd(LONG lModalResult, LONG lReserved) noexcept override;
    STDMETHODIMP get_Dialog(IQVDlgSymbols** ppVal) noexcept override;
    RESERVED_OPERATIONS_IDataProperty

        // This dialog has symbols only: 0 series and a single symbol. E_INVALIDARG for anything else.
        STDMETHODIMP
        put_Mode(LONG lSeries, LONG lSingle) noexcept override;

    STDMETHODIMP get_DataFeed(BSTR* pVal) noexcept override;
    STDMETHODIMP put_DataFeed(BSTR sDataFeed) noexcept override;
    STDMETHODIMP put_Description(BSTR sDescription) noexcept override;
    STDMETHODIMP put_Kind(LONG lKind) noexcept override;
    STDMETHODIMP put_Name(BSTR sName) noexcept override;
    // E_UNEXPECTED while nothing is picked.
    STDMETHODIMP get_DataFeedId(LONG* pVal) noexcept override;
    STDMETHODIMP get_SymbolId(LONG* pVal) noexcept override;
    // S_FALSE for a symbol that is not known.
    STDMETHODIMP Select(BSTR sDataFeed, BSTR sName, LONG lCategory, BSTR sExchange) noexcept override;
    RESERVED_OPERATIONS_IQuickRequest

        STDMETHODIMP
        put_Filter(BSTR sName) noexcept override;
    RESERVED_OPERATIONS_IQVDlgSymbols

        const symbol_store&
        store() const override {
        return m_store;
    }
    const std::string& feed() const override { return m_feed; }
    const std::string& text() const override { return m_text; }
    int present() const override { return m_present; }
    void pick(const instrument* one) override;

private:
    const symbol_store& m_store;
    std::string m_feed;
    std::string m_text;
    int m_present = 0;
    const instrument* m_picked = nullptr;
};

}  // namespace host
