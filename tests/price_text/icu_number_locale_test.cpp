#include "platform/posix/icu_number_locale.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using platform::icu_number_locale;

struct locale_row {
    const char* name;
    const wchar_t* decimal;
    const wchar_t* group;
    const wchar_t* grouping;
};

class IcuLocale : public testing::TestWithParam<locale_row> {};

TEST_P(IcuLocale, HasTheConventionsOfItsCountry) {
    icu_number_locale locale(GetParam().name);
    const platform::number_conventions user = locale.user_conventions();
    EXPECT_EQ(user.decimal_separator, GetParam().decimal);
    EXPECT_EQ(user.group_separator, GetParam().group);
    EXPECT_EQ(user.grouping, GetParam().grouping);
    EXPECT_EQ(user.locale, 0x400U);
    EXPECT_EQ(user.leading_zero, 1U);
    EXPECT_EQ(user.negative_form, 1U);
}

INSTANTIATE_TEST_SUITE_P(Table, IcuLocale,
                         testing::Values(locale_row{"en_US.UTF-8", L".", L",", L"3;0"},
                                         locale_row{"de_DE.UTF-8", L",", L".", L"3;0"},
                                         locale_row{"fr_FR.UTF-8", L",", L"\u202F", L"3;0"},
                                         locale_row{"hi_IN.UTF-8", L".", L",", L"3;2;0"},
                                         locale_row{"zh_TW.UTF-8", L".", L",", L"3;0"}));

TEST(IcuLocale, WritesAndReadsWithItsSeparators) {
    icu_number_locale german("de_DE.UTF-8");
    EXPECT_EQ(german.double_to_text(-1234.5), L"-1234,5");
    EXPECT_EQ(german.text_to_double(L"1.234,5"), 1234.5);
    EXPECT_EQ(german.text_to_double(L"1,5"), 1.5);
    EXPECT_EQ(german.text_to_double(L"1.5"), 15.0);
}

TEST(IcuLocale, ASecondDecimalSeparatorIsNoNumber) {
    EXPECT_EQ(icu_number_locale("en_US").text_to_double(L"1.2.3"), std::nullopt);
    EXPECT_EQ(icu_number_locale("de_DE").text_to_double(L"1,2,3"), std::nullopt);
}

TEST(IcuLocale, AnExponentOfAnyLengthIsOutOfRangeOrZero) {
    icu_number_locale english("en_US");
    EXPECT_EQ(english.text_to_double(L"1e999999999999999999999"), std::nullopt);
    EXPECT_EQ(english.text_to_double(L"1e-999999999999999999999"), 0.0);
}

TEST(IcuLocale, ANoBreakSpaceBetweenGroupsMayBeTypedAsAnyBlank) {
    icu_number_locale french("fr_FR.UTF-8");
    EXPECT_EQ(french.text_to_double(L"1\u202F234,5"), 1234.5);
    EXPECT_EQ(french.text_to_double(L"1\u00A0234,5"), 1234.5);
    EXPECT_EQ(french.text_to_double(L"1 234,5 "), 1234.5);
    EXPECT_EQ(french.text_to_double(L"1  234"), std::nullopt);
    icu_number_locale english("en_US");
    EXPECT_EQ(english.text_to_double(L"1 234"), std::nullopt);
}

// Sets a variable of the environment, or takes it away, while it lives.
class environment_scope {
public:
    environment_scope(const char* name, const char* value) : m_name(name) {
        const char* const old = std::getenv(name);
        if (old != nullptr) {
            m_old = old;
        }
        set(value);
    }
    ~environment_scope() { set(m_old ? m_old->c_str() : nullptr); }
    environment_scope(const environment_scope&) = delete;
    environment_scope& operator=(const environment_scope&) = delete;

private:
    void set(const char* value) {
        if (value != nullptr) {
            setenv(m_name, value, 1);
        } else {
            unsetenv(m_name);
        }
    }

    const char* m_name;
    std::optional<std::string> m_old;
};

TEST(IcuLocale, TheEnvironmentNamesTheLocale) {
    const environment_scope all("LC_ALL", nullptr);
    const environment_scope numeric("LC_NUMERIC", nullptr);
    const environment_scope lang("LANG", nullptr);
    EXPECT_EQ(icu_number_locale::environment_locale(), "en_US");
    const environment_scope with_lang("LANG", "fr_FR.UTF-8");
    EXPECT_EQ(icu_number_locale::environment_locale(), "fr_FR.UTF-8");
    const environment_scope with_numeric("LC_NUMERIC", "de_DE.UTF-8");
    EXPECT_EQ(icu_number_locale::environment_locale(), "de_DE.UTF-8");
    const environment_scope with_all("LC_ALL", "hi_IN");
    EXPECT_EQ(icu_number_locale::environment_locale(), "hi_IN");
    const environment_scope empty("LC_ALL", "");
    EXPECT_EQ(icu_number_locale::environment_locale(), "de_DE.UTF-8");
}

TEST(IcuLocale, ALocaleWithoutConventionsIsEnglish) {
    for (const char* name : {"C", "POSIX", "C.UTF-8"}) {
        const environment_scope all("LC_ALL", name);
        EXPECT_EQ(icu_number_locale::environment_locale(), "en_US");
    }
}

TEST(IcuLocale, AnUnknownNameGivesConventionsAllTheSame) {
    icu_number_locale locale("no such locale");
    EXPECT_FALSE(locale.user_conventions().decimal_separator.empty());
}

}  // namespace
