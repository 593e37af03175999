// The quantity calculator as the bar asks for it.
#pragma once

#include <TradingCenter.h>

#include <functional>
#include <optional>

#include "com/object.h"

namespace host {

class quantity_calculator : public object<IQuantityCalculator> {
public:
    // Runs the calculator, modal on the owner. Nothing when the user gave up.
    using question = std::function<std::optional<LONG>(HWND owner, LONG quantity, LONG category)>;

    explicit quantity_calculator(question ask) : m_ask(std::move(ask)) {}

    // E_ABORT when the user gave up; the quantity is then not written.
    STDMETHODIMP Calculate(ULONGLONG hOwner, LONG quantity, LONG category,
                           LONG* pQuantity) noexcept override {
        return guarded([&] {
            if (pQuantity == nullptr) {
                return E_POINTER;
            }
            const auto owner = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(hOwner));
            const std::optional<LONG> answer = m_ask(owner, quantity, category);
            if (!answer) {
                return E_ABORT;
            }
            *pQuantity = *answer;
            return S_OK;
        });
    }

private:
    question m_ask;
};

}  // namespace host
