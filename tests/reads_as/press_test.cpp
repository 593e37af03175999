// Typed texts up to the press: an order goes out if the text reads as a legal price and the field took it for
// that price, and only then.
#include <gtest/gtest.h>

#include "tests/reads_as/conventions.h"
#include "tests/reads_as/exact_reader.h"
#include "tests/reads_as/typed_texts.h"
#include "tests/support/field_sight.h"
#include "tests/tab/tab_fixture.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace OV_OrderDeck {
namespace {

using reads_as_tests::typed_prices;
using reads_as_tests::typed_quantities;
using reads_as_tests::user;

struct scale {
    LONG code;
    exact::number tick;
};

// Without a scale there is no tick, and what stands for it is below every price.
const std::vector<scale>& twelve_scales() {
    using exact::number;
    static const std::vector<scale> all = {
        {0, 1},
        {2, number(1, 100)},
        {4, number(1, 10000)},
        {-1, -1},
        {'h', number(1, 8)},
        {'k', number(1, 32)},
        {'l', number(1, 64)},
        {'m', number(1, 100)},
        {'s', number(1, 320)},
        {'u', number(1, 128)},
        {'w', number(1, 1000000)},
        {'q', number(1, 128)},
    };
    return all;
}

class Press : public test::tab_fixture, public testing::WithParamInterface<user> {
protected:
    Press() : m_conventions(GetParam().conventions) { make_ready_tab(); }

    void trade(LONG code) {
        test::symbol traded = instrument(L"S" + std::to_wstring(code));
        traded.price_scale_code = code;
        traded.min_movement = 1.0;
        put_symbol(traded);
    }

    row_differences press() {
        forget();
        return dynamic_cast<IPressedButton&>(field(eODUE_Buy)).Press(test::sight_of_fields(*tab));
    }

    void forget() {
        reset_record();
        profile->trading->orders.clear();
        desktop.forget();
    }

    const std::vector<test::FakeManualTrading::order>& orders() const { return profile->trading->orders; }

private:
    number_locale_scope m_conventions;
};

// What has to go out for a typed price, nothing where nothing may.
std::optional<exact::number> sent_for(const CString& text, const scale& its, const user& whose) {
    constexpr int highest = 250000;
    const std::optional<exact::number> reads = exact::price(text, whose.conventions);
    double parsed = 0.0;
    const bool same = reads && CPriceScale(its.code).Parse(text, parsed) && exact::is_near(*reads, parsed);
    return same && *reads >= its.tick && *reads <= highest ? reads : std::nullopt;
}

TEST_P(Press, SendsATypedPriceIfItReadsAndOnlyThen) {
    int sent = 0;
    int stopped = 0;
    field(eODUE_OrderType).Select(eMTPA_OC_Limit);
    for (const scale& its : twelve_scales()) {
        trade(its.code);
        for (const wchar_t* const text : typed_prices) {
            type(eODUE_SecondPrice, text);
            const std::optional<exact::number> expected = sent_for(text, its, GetParam());
            const row_differences differences = press();
            const std::string said = std::to_string(its.code) + " \"" + test::narrow(text) + '"';
            ASSERT_EQ(orders().size(), expected ? 1U : 0U) << said;
            ASSERT_TRUE(!expected || exact::is_near(*expected, orders().front().limit_price)) << said;
            // Whoever is stopped is told why, once.
            ASSERT_EQ(desktop.message_boxes().size() + differences.size(), expected ? 0U : 1U) << said;
            ++(expected ? sent : stopped);
        }
    }
    EXPECT_GE(sent, 100);
    EXPECT_GE(stopped, 300);
}

TEST_P(Press, SendsATypedStopPriceIfItReadsAndOnlyThen) {
    const scale& its = twelve_scales().at(1);
    trade(its.code);
    field(eODUE_OrderType).Select(eMTPA_OC_Stop);
    for (const wchar_t* const text : typed_prices) {
        type(eODUE_FirstPrice, text);
        const std::optional<exact::number> expected = sent_for(text, its, GetParam());
        press();
        ASSERT_EQ(orders().size(), expected ? 1U : 0U) << test::narrow(text);
        ASSERT_TRUE(!expected || exact::is_near(*expected, orders().front().stop_price))
            << test::narrow(text);
    }
}

// The field holds one quantity, whatever the text on the screen.
TEST_P(Press, SendsAQuantityIfTheShownTextReadsAsItAndOnlyThen) {
    int sent = 0;
    int stopped = 0;
    for (const LONG held : {0, 1, 7, 100, 1500, 100000, 2000000, 2147483646}) {
        type(eODUE_Quantity, std::to_wstring(held).c_str());
        for (const wchar_t* const text : typed_quantities) {
            CRowSight sight = test::sight_of_fields(*tab);
            sight[eODUE_Quantity].text = text;
            forget();
            const row_differences differences = dynamic_cast<IPressedButton&>(field(eODUE_Sell)).Press(sight);
            const bool expected = exact::quantity(text, GetParam().conventions) == held;
            ASSERT_EQ(orders().size(), expected ? 1U : 0U) << held << " \"" << test::narrow(text) << '"';
            ASSERT_TRUE(!expected || orders().front().quantity == held);
            ASSERT_EQ(differences.size(), expected ? 0U : 1U) << held << " \"" << test::narrow(text) << '"';
            ++(expected ? sent : stopped);
        }
    }
    EXPECT_GE(sent, 6);
    EXPECT_GE(stopped, 100);
}

// What a price field shows of its own, after a quote was picked or its spin was pressed, is never stopped.
TEST_P(Press, SendsWhateverTheFieldMadeItsTextOf) {
    field(eODUE_OrderType).Select(eMTPA_OC_StopLimit);
    for (const scale& its : twelve_scales()) {
        trade(its.code);
        for (const double picked : {0.001, 1.0, 117.96875, 6010.25, 123456.5, 250000.0, 300000.0}) {
            const double on_grid = CPriceScale(its.code).Round(picked, 1);
            quotes().put_Value(_variant_t(on_grid));
            const row_differences differences = press();
            const bool legal = desktop.message_boxes().empty();
            ASSERT_TRUE(differences.empty())
                << its.code << ' ' << picked << ' ' << test::narrow(TextOfDifferences(differences));
            ASSERT_EQ(orders().size(), legal ? 1U : 0U) << its.code << ' ' << picked;
            ASSERT_TRUE(legal) << its.code << ' ' << picked;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Users, Press, testing::ValuesIn(reads_as_tests::working_users()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace OV_OrderDeck
