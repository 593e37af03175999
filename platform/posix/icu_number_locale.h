#pragma once

#include <string>

#include "platform/number_locale.h"

namespace platform {

// Numbers in the conventions of one locale, by ICU's data. Constant once made; any thread.
class icu_number_locale final : public number_locale {
public:
    // A locale as the environment names it, such as "de_DE.UTF-8".
    explicit icu_number_locale(const std::string& locale);

    number_conventions user_conventions() override { return m_conventions; }
    std::optional<CString> format_number(const CString& text, const number_format& format) override;
    CString double_to_text(double value) override;
    std::optional<double> text_to_double(const CString& text) override;

    // The name that the environment gives for numbers; "en_US" when it gives none or "C", which has no
    // conventions of its own.
    static std::string environment_locale();

private:
    number_conventions m_conventions;
};

}  // namespace platform
