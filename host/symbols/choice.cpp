#include "symbols/choice.h"

#include "com/text.h"

namespace host {
namespace {

// The modal result of a dialog in which nothing was chosen.
constexpr LONG nothing_chosen = 1;

}  // namespace

HRESULT symbol_choice::Prepare() noexcept {
    m_feed.clear();
    m_text.clear();
    m_present = 0;
    m_picked = nullptr;
    return S_OK;
}

HRESULT symbol_choice::OnDialogEnd(LONG lModalResult, LONG) noexcept {
    if (lModalResult == nothing_chosen) {
        m_picked = nullptr;
    }
    return S_OK;
}

HRESULT symbol_choice::get_Dialog(IQVDlgSymbols** ppVal) noexcept {
    if (ppVal == nullptr) {
        return E_POINTER;
    }
    hand_out<IQVDlgSymbols>(this, ppVal);
    return S_OK;
}

HRESULT symbol_choice::put_Mode(LONG lSeries, LONG lSingle) noexcept {
    return lSeries == 0 && lSingle == 1 ? S_OK : E_INVALIDARG;
}

HRESULT symbol_choice::get_DataFeed(BSTR* pVal) noexcept {
    return guarded([&] {
        if (pVal == nullptr) {
            return E_POINTER;
        }
        *pVal = to_bstr(m_picked != nullptr ? m_picked->feed : m_feed);
        return S_OK;
    });
}

HRESULT symbol_choice::put_DataFeed(BSTR sDataFeed) noexcept {
    return guarded([&] {
        m_feed = bstr_text(sDataFeed);
        return S_OK;
    });
}

// The description of the present choice; the dialog shows those of its list.
HRESULT symbol_choice::put_Description(BSTR) noexcept {
    return S_OK;
}

HRESULT symbol_choice::put_Kind(LONG lKind) noexcept {
    if (lKind != 0) {
        return E_INVALIDARG;
    }
    m_picked = nullptr;
    return S_OK;
}

// The name of the present choice, if it is known in the feed that was set before.
HRESULT symbol_choice::put_Name(BSTR sName) noexcept {
    return guarded([&] {
        const std::string name = bstr_text(sName);
        const instrument* found = m_store.find(symbol_key{name, m_feed});
        m_present = found == nullptr ? 0 : found->id;
        return S_OK;
    });
}

HRESULT symbol_choice::get_DataFeedId(LONG* pVal) noexcept {
    if (pVal == nullptr) {
        return E_POINTER;
    }
    if (m_picked == nullptr) {
        return E_UNEXPECTED;
    }
    *pVal = m_store.feed_number(m_picked->feed);
    return S_OK;
}

HRESULT symbol_choice::get_SymbolId(LONG* pVal) noexcept {
    if (pVal == nullptr) {
        return E_POINTER;
    }
    if (m_picked == nullptr) {
        return E_UNEXPECTED;
    }
    *pVal = m_picked->id;
    return S_OK;
}

HRESULT symbol_choice::Select(BSTR sDataFeed, BSTR sName, LONG lCategory, BSTR sExchange) noexcept {
    return guarded([&] {
        const std::string name = bstr_text(sName);
        const std::string feed = bstr_text(sDataFeed);
        const std::string exchange = bstr_text(sExchange);
        const instrument* found = m_store.find({name, feed, exchange, static_cast<int>(lCategory)});
        if (found == nullptr) {
            return S_FALSE;
        }
        m_feed = feed;
        m_present = found->id;
        return S_OK;
    });
}

HRESULT symbol_choice::put_Filter(BSTR sName) noexcept {
    return guarded([&] {
        m_text = bstr_text(sName);
        return S_OK;
    });
}

void symbol_choice::pick(const instrument* one) {
    m_picked = one;
}

}  // namespace host
