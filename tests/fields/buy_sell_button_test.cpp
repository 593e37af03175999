// Buy and Sell: the face of the button, and the order that a press sends.
#include "charting/orderdeck/src/tab/Controls/BuySellButton.h"

#include <stdexcept>

#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;

class action_button : public test::fields_fixture {
protected:
    action_button() { make_ready_tab(); }

    CString face_with(const platform::number_conventions& conventions, const wchar_t* number) {
        const number_locale_scope scope(conventions);
        type(eODUE_Quantity, number);
        return value_text(buy());
    }
};

TEST_F(action_button, at_market_with_one_shows_verb_and_word_over_the_quantity) {
    EXPECT_EQ(L"買進 市價\n1", value_text(buy()));
    EXPECT_EQ(L"賣出 市價\n1", value_text(sell()));
}

TEST_F(action_button, shows_the_word_of_each_order_type) {
    const struct {
        LONG category;
        const wchar_t *buy, *sell;
    } rows[] = {{2, L"買進 停止\n1", L"賣出 停止\n1"},
                {3, L"買進 限價\n1", L"賣出 限價\n1"},
                {4, L"買進 停限\n1", L"賣出 停限\n1"},
                {1, L"買進 市價\n1", L"賣出 市價\n1"}};
    for (const auto& row : rows) {
        order_type().Select(row.category);
        EXPECT_EQ(row.buy, value_text(buy()));
        EXPECT_EQ(row.sell, value_text(sell()));
    }
}

TEST_F(action_button, shows_the_quantity_by_the_users_conventions_without_abbreviating) {
    EXPECT_EQ(L"買進 市價\n1,234,567", face_with(english(), L"1234567"));
    EXPECT_EQ(L"買進 市價\n1.234.567", face_with(german(), L"1234567"));
    EXPECT_EQ(L"買進 市價\n1\u202F234\u202F567", face_with(french(), L"1234567"));
    EXPECT_EQ(L"買進 市價\n12,34,567", face_with(hindi(), L"1234567"));
    EXPECT_EQ(L"買進 市價\n100,000", face_with(english(), L"100000"));
    EXPECT_EQ(L"買進 市價\n1,500", face_with(english(), L"1500"));
    EXPECT_EQ(L"買進 市價\n0", face_with(english(), L"0"));
    EXPECT_EQ(L"買進 市價\n-5", face_with(english(), L"-5"));
    EXPECT_EQ(L"買進 市價\n(5)", face_with(english(0), L"-5"));
    EXPECT_EQ(L"買進 市價\n2,147,483,647", face_with(english(), L"2147483647"));
    EXPECT_EQ(L"買進 市價\n-2,147,483,648", face_with(english(), L"-2147483648"));
    EXPECT_TRUE(reported().empty());
}

TEST_F(action_button, without_an_order_type_has_no_face) {
    order_type().Reset();
    reset_record();
    for (IUnifyControl* const button :
         {static_cast<IUnifyControl*>(&buy()), static_cast<IUnifyControl*>(&sell())}) {
        try {
            button->get_Value();
            ADD_FAILURE() << "a face for no order type";
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ("wrong order category", error.what());
        }
    }
    EXPECT_TRUE(reported().empty());
}

TEST_F(action_button, the_refused_face_is_logged_by_the_guard) {
    order_type().Reset();
    reset_record();
    EXPECT_EQ(E_INVALIDARG, BugSlayerUtil::guard(BS_HERE, [&] { buy().get_Value(); }));
    ASSERT_EQ(1u, recorder.traces().size());
    EXPECT_EQ(0u, recorder.traces()[0].find(L"std::out_of_range - wrong order category"));
}

TEST_F(action_button, sends_its_own_action_whatever_the_key) {
    buy().Select(0);
    buy().Select(2);
    buy().Select(-1);
    sell().Select(0);
    sell().Select(1);
    ASSERT_EQ(5u, profile->trading->orders.size());
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(i < 3 ? eMTPA_OA_Buy : eMTPA_OA_Sell, profile->trading->orders[i].action) << i;
    }
}

TEST_F(action_button, takes_no_value) {
    const CString before = value_text(buy());
    buy().put_Value(_variant_t(L"5"));
    sell().put_Value(_variant_t(5L));
    EXPECT_EQ((std::vector<std::wstring>{L"0", L"0"}), reported());
    EXPECT_EQ(before, value_text(buy()));
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(action_button, the_quantity_and_the_order_type_name_both_buttons) {
    type(eODUE_Quantity, L"5");
    order_type().Select(2);
    EXPECT_EQ(1, host.count("TabCtrl.Update(1, 0x30000)"));
    EXPECT_EQ(1, host.count("TabCtrl.Update(1, 0x32c00)"));
}

}  // namespace
}  // namespace OV_OrderDeck
