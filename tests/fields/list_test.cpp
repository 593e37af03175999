// A list field by itself: items in key order and one selected key.
#include "charting/orderdeck/src/tab/Controls/ListImpl.h"

#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

class Letters : public CListImpl<IUnifyControl> {
public:
    Letters() { m_items = {{7, L"seven"}, {-3, L"minus three"}, {2, L"two"}}; }
};

class list_field : public ::testing::Test {
protected:
    std::vector<std::wstring> reported() const {
        std::vector<std::wstring> texts;
        for (const reported_assertion& seen : recorder.assertions()) {
            texts.push_back(seen.description);
        }
        return texts;
    }

    diagnostics_recorder recorder;
    Letters list;
};

using texts = std::vector<std::wstring>;

TEST_F(list_field, starts_with_nothing_selected) {
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(-1, list.get_SelectedItem(nullptr));
    EXPECT_EQ(texts{}, reported());
}

TEST_F(list_field, counts_and_shows_its_items_in_the_order_of_their_keys) {
    EXPECT_EQ(3, list.get_Count());
    CString text;
    EXPECT_EQ(-3, list.get_Item(0, &text));
    EXPECT_EQ(L"minus three", text);
    EXPECT_EQ(2, list.get_Item(1, &text));
    EXPECT_EQ(L"two", text);
    EXPECT_EQ(7, list.get_Item(2, nullptr));
}

TEST_F(list_field, has_no_item_outside_its_places) {
    CString text = L"as it was";
    for (const LONG place : {-1, 3, 0x7FFFFFFF, -0x7FFFFFFF - 1}) {
        EXPECT_EQ(-1, list.get_Item(place, &text)) << place;
    }
    EXPECT_EQ(L"as it was", text);
    EXPECT_EQ(texts{}, reported());
}

TEST_F(list_field, selects_a_key_that_it_holds) {
    list.Select(2);
    CString text;
    EXPECT_EQ(2, list.get_SelectedItem(&text));
    EXPECT_EQ(L"two", text);
    EXPECT_FALSE(list.IsEmpty());
    EXPECT_EQ(texts{}, reported());
}

TEST_F(list_field, reports_a_key_that_it_does_not_hold_and_keeps_the_selection) {
    list.Select(2);
    list.Select(3);
    EXPECT_EQ(2, list.get_SelectedItem(nullptr));
    EXPECT_EQ(texts{L"_it != m_items.end()"}, reported());
}

TEST_F(list_field, reports_a_selection_while_it_is_disabled_and_keeps_its_own) {
    list.Select(2);
    list.put_Enabled(false);
    list.Select(7);
    EXPECT_EQ(2, list.get_SelectedItem(nullptr));
    EXPECT_EQ(texts{L"m_bEnabled"}, reported());
}

TEST_F(list_field, a_disabled_one_does_not_look_for_the_key) {
    list.put_Enabled(false);
    list.Select(3);
    EXPECT_EQ(texts{L"m_bEnabled"}, reported());
}

TEST_F(list_field, reports_the_text_of_no_selection) {
    CString text = L"as it was";
    EXPECT_EQ(-1, list.get_SelectedItem(&text));
    EXPECT_EQ(L"as it was", text);
    EXPECT_EQ(texts{L"_it != m_items.end()"}, reported());
}

TEST_F(list_field, reset_disables_and_unselects_and_keeps_the_items) {
    list.Select(2);
    list.Reset();
    EXPECT_FALSE(list.get_Enabled());
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(3, list.get_Count());
    EXPECT_EQ(7, list.get_Item(2, nullptr));
    EXPECT_EQ(texts{}, reported());
}

// A key of -1 is an item like any other, but selecting it leaves the field empty.
TEST_F(list_field, is_empty_by_the_key_alone) {
    class WithNone : public CListImpl<IUnifyControl> {
    public:
        WithNone() { m_items = {{-1, L"none"}}; }
    } with_none;
    with_none.Select(-1);
    CString text;
    EXPECT_EQ(-1, with_none.get_SelectedItem(&text));
    EXPECT_EQ(L"none", text);
    EXPECT_TRUE(with_none.IsEmpty());
    EXPECT_EQ(texts{}, reported());
}

}  // namespace
}  // namespace OV_OrderDeck
