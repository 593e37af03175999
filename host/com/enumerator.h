// The enumerators of connection points.
#pragma once

#include <algorithm>
#include <vector>

#include "com/object.h"

namespace host {

inline IConnectionPoint* copy_element(const ref<IConnectionPoint>& point) {
    return ref<IConnectionPoint>(point).detach();
}

struct connection {
    ref<IUnknown> sink;
    DWORD cookie;
};

inline CONNECTDATA copy_element(const connection& one) {
    return {ref<IUnknown>(one.sink).detach(), one.cookie};
}

// Enumerates a copy of the items that it was made with. Enumerator is the COM interface, Given what its
// Next writes, Item what is kept.
template <class Enumerator, class Given, class Item>
class enumerator : public object<Enumerator> {
public:
    explicit enumerator(std::vector<Item> items, std::size_t next = 0)
        : m_items(std::move(items)), m_next(next) {}

    STDMETHODIMP Next(ULONG count, Given* out, ULONG* fetched) noexcept override {
        if (out == nullptr || (fetched == nullptr && count != 1)) {
            return E_POINTER;
        }
        ULONG given = 0;
        for (; given < count && m_next < m_items.size(); ++given) {
            out[given] = copy_element(m_items[m_next++]);
        }
        if (fetched != nullptr) {
            *fetched = given;
        }
        return given == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) noexcept override {
        const std::size_t left = m_items.size() - m_next;
        m_next += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() noexcept override {
        m_next = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(Enumerator** out) noexcept override {
        return guarded([&] {
            if (out == nullptr) {
                return E_POINTER;
            }
            hand_out<Enumerator>(make<enumerator>(m_items, m_next).get(), out);
            return S_OK;
        });
    }

private:
    std::vector<Item> m_items;
    std::size_t m_next;
};

}  // namespace host
