#pragma once

#include <map>

#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"

namespace OV_OrderDeck {

// A field that is a list: items in key order and one selected key.
template <class Interface>
class CListImpl : public CUnifyControlImpl<Interface> {
public:
    void Select(LONG key) override {
        if (!BS_ASSERT_TEXT(this->m_bEnabled, "m_bEnabled")) {
            return;
        }
        const auto _it = m_items.find(key);
        if (BS_ASSERT(_it != m_items.end())) {
            m_selected = key;
        }
    }

    LONG get_Count() override { return static_cast<LONG>(m_items.size()); }

    LONG get_Item(LONG index, CString* text) override {
        if (index < 0 || index >= get_Count()) {
            return NoKey;
        }
        const auto item = std::next(m_items.begin(), index);
        if (text != nullptr) {
            *text = item->second;
        }
        return item->first;
    }

    LONG get_SelectedItem(CString* text) override {
        if (text == nullptr) {
            return m_selected;
        }
        const auto _it = m_items.find(m_selected);
        if (!BS_ASSERT(_it != m_items.end())) {
            return NoKey;
        }
        *text = _it->second;
        return m_selected;
    }

    bool IsEmpty() override { return m_selected == NoKey; }

    // The text of the selected item; null when the list has no such item. Reports nothing.
    const CString* FindSelectedText() const {
        const auto item = m_items.find(m_selected);
        return item != m_items.end() ? &item->second : nullptr;
    }

    // Makes the field unusable and unselected; the items stay.
    virtual void Reset() {
        this->m_bEnabled = false;
        m_selected = NoKey;
    }

protected:
    static constexpr LONG NoKey = -1;

    std::map<LONG, CString> m_items;
    LONG m_selected = NoKey;
};

}  // namespace OV_OrderDeck
