#include "unicomp/FormatUtil/interface/PriceScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceSteps.h"
#include "unicomp/FormatUtil/src/FractionParts.h"

namespace {

constexpr LONG no_scale = -1;
constexpr UINT most_decimals = 9;
constexpr double no_step = -1.0;

constexpr std::array<double, most_decimals + 1> decimal_steps{1.0,  0.1,  0.01, 1e-3, 1e-4,
                                                              1e-5, 1e-6, 1e-7, 1e-8, 1e-9};
constexpr std::array<double, most_decimals + 1> powers_of_ten{1.0, 1e1, 1e2, 1e3, 1e4,
                                                              1e5, 1e6, 1e7, 1e8, 1e9};

bool is_decimal_code(LONG code) {
    return code >= 0 && code <= static_cast<LONG>(most_decimals);
}

bool fits_int64(double value) {
    return value >= -0x1p63 && value < 0x1p63;
}

// The multiple of minMove nearest to a count of steps, ties away from zero.
double nearest_multiple(double steps, std::uint64_t minMove) {
    const double size = std::fabs(steps);
    const std::uint64_t low = static_cast<std::uint64_t>(size) / minMove * minMove;
    const std::uint64_t high = low + minMove;
    const bool up = size - static_cast<double>(low) >= static_cast<double>(high) - size;
    return std::copysign(static_cast<double>(up ? high : low), steps);
}

}  // namespace

double CPriceScale::Round(double value, LONG minMove) const {
    const double step = GetStep();
    if (step == no_step) {
        return value;
    }
    const LONG multiple = std::max<LONG>(minMove, 1);
    const double steps = value / step;
    if (fits_int64(steps)) {
        return nearest_multiple(steps, static_cast<std::uint64_t>(multiple)) * step;
    }
    const double grid = multiple * step;
    const double rest = std::fmod(value, grid);
    return std::fabs(2.0 * rest) >= grid ? value + grid - rest : value - rest;
}

UINT CPriceScale::GetDigits() const {
    if (is_decimal_code(m_nCode)) {
        return static_cast<UINT>(m_nCode);
    }
    if (m_nCode == no_scale) {
        return most_decimals;
    }
    const SPriceLetter* const letter = find_price_letter(m_nCode);
    if (letter == nullptr || 1.0 / letter->step <= 1.0) {
        return 0;
    }
    const auto enough = std::find_if(powers_of_ten.begin() + 1, powers_of_ten.end() - 1,
                                     [&](double power) { return power >= 1.0 / letter->step; });
    return static_cast<UINT>(enough - powers_of_ten.begin());
}

LONG CPriceScale::GetDenominator() const {
    const SPriceLetter* const letter = find_price_letter(m_nCode);
    return letter != nullptr ? letter->denominator : 0;
}

double CPriceScale::GetStep(double minMovement) const {
    double step = no_step;
    if (is_decimal_code(m_nCode)) {
        step = decimal_steps[static_cast<std::size_t>(m_nCode)];
    } else if (const SPriceLetter* const letter = find_price_letter(m_nCode)) {
        step = letter->step;
    }
    return step * minMovement;
}

void CPriceScale::SplitPrice(const CString& text, CString& whole, CString& numerator, CString& denominator,
                             CString& prefix, CString& suffix) const {
    const SPriceLocaleFormat& record = locale_records::price();
    CString body;
    const bool negative = record.SplitSign(text, body);
    prefix = negative ? record.GetNegativePrefix() : CString();
    suffix = negative ? record.GetNegativeSuffix() : CString();
    SFractionParts parts = cut_fraction(body);
    whole = std::move(parts.whole);
    numerator = std::move(parts.numerator);
    denominator = std::move(parts.denominator);
}

LONG CPriceScale::GetTextWidthInChars(const CString& text) const {
    std::size_t width = text.size();
    if (GetDenominator() != 0) {
        CString whole;
        CString numerator;
        CString denominator;
        CString prefix;
        CString suffix;
        SplitPrice(text, whole, numerator, denominator, prefix, suffix);
        width = prefix.size() + whole.size() + numerator.size() + suffix.size() + denominator.size() + 1;
    }
    return static_cast<LONG>(width);
}
