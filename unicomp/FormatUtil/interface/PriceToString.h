#pragma once

#include <memory>

#include "unicomp/FormatUtil/interface/PriceScale.h"

// The price format of one symbol. Its creator owns it; number editors borrow it. Used on the window's
// thread.
class CPriceToString {
public:
    explicit CPriceToString(LONG code) : Code(code), Scale(std::make_unique<CPriceScale>(code)) {}
    virtual ~CPriceToString() = default;
    CPriceToString(const CPriceToString&) = delete;
    CPriceToString& operator=(const CPriceToString&) = delete;

    // Grouped, snapped to MinMove steps.
    CString ToText(double value) const { return ToTextEx(value, MinMove); }
    // Grouped, snapped to minMove steps.
    CString ToTextEx(double value, LONG minMove) const { return Scale->ToText(value, minMove); }
    // Not grouped, snapped to one step.
    CString ToPlainText(double value) const { return Scale->ToPlainText(value); }

    // The multiple of the step to which prices are snapped.
    LONG MinMove = 1;
    // The PriceScaleCode as given at creation.
    LONG Code;
    // Arithmetic of the same code; never null.
    std::unique_ptr<CPriceScale> Scale;
};
