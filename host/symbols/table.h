// Rows of the symbol store in the shape of the lookup's tables.
#pragma once

#include <SymbolStore.h>

#include <variant>
#include <vector>

#include "com/object.h"
#include "market/symbol_store.h"

namespace host {

// A column's value. Texts are UTF-8 and belong to the store.
using symbol_value = std::variant<LONG, double, std::string_view>;

// One value, asked for by its own type; DISP_E_TYPEMISMATCH for any other.
class symbol_field : public object<IovField> {
public:
    explicit symbol_field(const symbol_value& value) : m_value(value) {}

    STDMETHODIMP get_AsLong(LONG* pVal) noexcept override;
    STDMETHODIMP get_AsDouble(double* pVal) noexcept override;
    STDMETHODIMP get_AsString(BSTR* pVal) noexcept override;

private:
    symbol_value m_value;
};

// By which a query fills a table of its own kind.
MIDL_INTERFACE("b6f1f0a7-5d37-4b2c-8f0e-3c5f4a9d2a61")
symbol_rows : public IUnknown {
    // Rows of the store, and the one that is the current one. The store outlives every table.
    virtual void fill(const symbol_store& store, std::vector<const instrument*> rows,
                      std::size_t current) = 0;
};

}  // namespace host

__CRT_UUID_DECL(host::symbol_rows, 0xb6f1f0a7, 0x5d37, 0x4b2c, 0x8f, 0x0e, 0x3c, 0x5f, 0x4a, 0x9d, 0x2a, 0x61)

namespace host {

class symbol_table : public object<IovTable, symbol_rows> {
public:
    // E_UNEXPECTED with no current row, E_INVALIDARG for a column that the row does not have.
    STDMETHODIMP get_Field(tagOVFIELDID id, IovField** ppVal) noexcept override;
    STDMETHODIMP MoveFirst() noexcept override;
    // At the end it stays there.
    STDMETHODIMP MoveNext() noexcept override;
    STDMETHODIMP get_EndOfTable(VARIANT_BOOL* pVal) noexcept override;
    RESERVED_OPERATIONS_IovTable

        void
        fill(const symbol_store& store, std::vector<const instrument*> rows, std::size_t current) override;

private:
    const symbol_store* m_store = nullptr;
    std::vector<const instrument*> m_rows;
    std::size_t m_current = 0;
};

}  // namespace host
