#include "symbols/table.h"

#include <optional>
#include <utility>

#include "com/text.h"
#include "symbols/currency.h"

namespace host {
namespace {

template <class T>
HRESULT read(const symbol_value& value, T* out) {
    if (out == nullptr) {
        return E_POINTER;
    }
    const T* found = std::get_if<T>(&value);
    if (found == nullptr) {
        return DISP_E_TYPEMISMATCH;
    }
    *out = *found;
    return S_OK;
}

std::optional<symbol_value> number_of(const symbol_store& store, const instrument& one, tagOVFIELDID id) {
    const bool second = one.kind == instrument_kind::basket;
    switch (id) {
        case eOVF_PriceScaleCode:
            return LONG{one.scale};
        case eOVF_Expiry:
            return static_cast<LONG>(one.expiry);
        case eOVF_Category:
            return static_cast<LONG>(one.kind);
        case eOVF_DataFeedId:
            return LONG{store.feed_number(one.feed)};
        case eOVF_PutOrCall:
            return LONG{one.put ? 1 : 0};
        case eOVF_CurrencyKey:
            return LONG{currency_key(one.currency)};
        case eOVF_StrikePrice:
            return one.strike;
        case eOVF_BigPointValue:
            return one.point_value;
        case eOVF_MinMovement:
            return static_cast<double>(one.min_move);
        // Each table has an id column of its own.
        case eOVF_Id:
            return second ? std::nullopt : std::optional<symbol_value>(LONG{one.id});
        case eOVF_SecondId:
            return second ? std::optional<symbol_value>(LONG{one.id}) : std::nullopt;
        default:
            return std::nullopt;
    }
}

std::optional<symbol_value> text_of(const instrument& one, tagOVFIELDID id) {
    switch (id) {
        case eOVF_Exchange:
            return std::string_view(one.exchange);
        case eOVF_Name:
            return std::string_view(one.name);
        case eOVF_Description:
            return std::string_view(one.description);
        case eOVF_DataFeed:
            return std::string_view(one.feed);
        case eOVF_Root:
            return std::string_view(one.root);
        case eOVF_ExchangeTZI:
            return std::string_view(one.time_zone);
        default:
            return std::nullopt;
    }
}

}  // namespace

HRESULT symbol_field::get_AsLong(LONG* pVal) noexcept {
    return read(m_value, pVal);
}

HRESULT symbol_field::get_AsDouble(double* pVal) noexcept {
    return read(m_value, pVal);
}

HRESULT symbol_field::get_AsString(BSTR* pVal) noexcept {
    return guarded([&] {
        if (pVal == nullptr) {
            return E_POINTER;
        }
        std::string_view text;
        const HRESULT hr = read(m_value, &text);
        if (SUCCEEDED(hr)) {
            *pVal = to_bstr(text);
        }
        return hr;
    });
}

HRESULT symbol_table::get_Field(tagOVFIELDID id, IovField** ppVal) noexcept {
    return guarded([&] {
        if (ppVal == nullptr) {
            return E_POINTER;
        }
        if (m_current >= m_rows.size()) {
            return E_UNEXPECTED;
        }
        const instrument& one = *m_rows[m_current];
        std::optional<symbol_value> value = text_of(one, id);
        if (!value) {
            value = number_of(*m_store, one, id);
        }
        if (!value) {
            return E_INVALIDARG;
        }
        hand_out<IovField>(make<symbol_field>(*value).get(), ppVal);
        return S_OK;
    });
}

HRESULT symbol_table::MoveFirst() noexcept {
    m_current = 0;
    return S_OK;
}

HRESULT symbol_table::MoveNext() noexcept {
    if (m_current < m_rows.size()) {
        ++m_current;
    }
    return S_OK;
}

HRESULT symbol_table::get_EndOfTable(VARIANT_BOOL* pVal) noexcept {
    if (pVal == nullptr) {
        return E_POINTER;
    }
    *pVal = m_current >= m_rows.size() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

void symbol_table::fill(const symbol_store& store, std::vector<const instrument*> rows, std::size_t current) {
    m_store = &store;
    m_rows = std::move(rows);
    m_current = current;
}

}  // namespace host
