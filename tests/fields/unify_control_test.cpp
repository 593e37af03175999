// The contract of every field: bits, masks, operations in their order, and what a field does not offer.
#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

#include "tests/fields/fields_fixture.h"
#include "tests/support/interface_order.h"

namespace OV_OrderDeck {
namespace {

using test::place;
using test::raised_by;

static_assert(eODUE_Symbol == 128 && eODUE_OrderType == 256 && eODUE_Quantity == 512);
static_assert(eODUE_FirstPrice == 1024 && eODUE_SecondPrice == 2048 && eODUE_Account == 4096);
static_assert(eODUE_TimeInForce == 8192 && eODUE_GtdDate == 16384 && eODUE_AskBid == 32768);
static_assert(eODUE_Buy == 65536 && eODUE_Sell == 131072);
static_assert(UpdateMask::Name == 1 && UpdateMask::Repaint == 2 && UpdateMask::ConnectionState == 4);
static_assert(UpdateMask::AllFields == 0x3FF80 && UpdateMask::AllFieldsRepaintConnection == 262022);
static_assert(UpdateMask::Everything == 0x3FF87 && UpdateMask::OrderType == 0x32C00);
static_assert(UpdateMask::Buttons == 0x30000 && UpdateMask::Prices == 0xC00);

static_assert(std::is_base_of_v<IUnifyControl, ISymbolCtrl> && std::is_base_of_v<IUnifyControl, IAskBidCtrl>);
template <class Field>
constexpr bool is_plain = std::is_base_of_v<CUnifyControlImpl<IUnifyControl>, Field>;
static_assert(is_plain<CQuantityEdit> && is_plain<CFirstPriceEdit> && is_plain<CSecondPriceEdit>);
static_assert(is_plain<CTimeInForceEdit> && is_plain<CBuyButton> && is_plain<CSellButton>);
static_assert(is_plain<CListImpl<IUnifyControl>>);
template <class Field>
constexpr bool is_list = std::is_base_of_v<CListImpl<IUnifyControl>, Field>;
static_assert(is_list<COrderTypeCombo> && is_list<CTimeInForceCombo> && is_list<CAccountCombo>);
static_assert(std::is_base_of_v<CUnifyControlImpl<ISymbolCtrl>, CLookup>);
static_assert(std::is_base_of_v<CUnifyControlImpl<IAskBidCtrl>, CAskBidButton>);
static_assert(!std::is_copy_constructible_v<CQuantityEdit> && !std::is_copy_assignable_v<CQuantityEdit>);
static_assert(std::has_virtual_destructor_v<IUnifyControl>);

TEST(unify_control, operations_stand_in_their_order) {
    const std::size_t places[] = {
        place(&IUnifyControl::Select),        place(&IUnifyControl::get_Count),
        place(&IUnifyControl::get_Item),      place(&IUnifyControl::get_SelectedItem),
        place(&IUnifyControl::get_Checked),   place(&IUnifyControl::get_Enabled),
        place(&IUnifyControl::get_Hidden),    place(&IUnifyControl::put_Value),
        place(&IUnifyControl::get_Value),     place(&IUnifyControl::get_ValueRange),
        place(&IUnifyControl::get_SpinRange), place(&IUnifyControl::IsEmpty)};
    for (std::size_t i = 0; i < std::size(places); ++i) {
        EXPECT_EQ(i + 1, places[i]);
    }
}

TEST(unify_control, added_operations_follow_those_of_the_interface_in_their_order) {
    // Behind IsEmpty stand the two entries of the virtual destructor.
    const std::size_t first = place(&IUnifyControl::IsEmpty) + 3;
    EXPECT_EQ(first, place(&ISymbolCtrl::get_Category));
    EXPECT_EQ(first + 1, place(&ISymbolCtrl::get_PriceScaleCode));
    EXPECT_EQ(first + 2, place(&ISymbolCtrl::get_MinMovement));
    EXPECT_EQ(first + 3, place(&ISymbolCtrl::LookupWithDialog));
    EXPECT_EQ(first + 4, place(&ISymbolCtrl::LookupByText));
    EXPECT_EQ(first, place(&IAskBidCtrl::get_Ask));
    EXPECT_EQ(first + 1, place(&IAskBidCtrl::get_Bid));
    EXPECT_EQ(first, place(&CUnifyControlImpl<IUnifyControl>::put_Enabled));
    EXPECT_EQ(first + 5, place(&CUnifyControlImpl<ISymbolCtrl>::put_Enabled));
    EXPECT_EQ(first + 2, place(&CUnifyControlImpl<IAskBidCtrl>::put_Enabled));
    EXPECT_EQ(first + 1, place(&CListImpl<IUnifyControl>::Reset));
}

class PlainField : public CUnifyControlImpl<IUnifyControl> {};

class PlainSymbol : public CUnifyControlImpl<ISymbolCtrl> {
public:
    LONG get_Category() override { return 0; }
    LONG get_PriceScaleCode() override { return 0; }
    double get_MinMovement() override { return 0.0; }
    void LookupWithDialog() override {}
    void LookupByText(const CString&, bool, bool) override {}
};

class PlainQuotes : public CUnifyControlImpl<IAskBidCtrl> {
public:
    double get_Ask() override { return 0.0; }
    double get_Bid() override { return 0.0; }
};

class unify_control_defaults : public ::testing::Test {
protected:
    // Runs the operation and tells how often "0" was reported; anything else fails.
    template <class Operation>
    std::size_t stray_calls(Operation&& operation) {
        recorder.clear();
        operation();
        for (const reported_assertion& seen : recorder.assertions()) {
            EXPECT_EQ(L"0", seen.description);
        }
        return recorder.assertions().size();
    }

    diagnostics_recorder recorder;
};

template <class Field>
class unify_control_of_each_interface : public unify_control_defaults {};

using each_interface = ::testing::Types<PlainField, PlainSymbol, PlainQuotes>;
TYPED_TEST_SUITE(unify_control_of_each_interface, each_interface);

TYPED_TEST(unify_control_of_each_interface, refuses_a_null_owner) {
    TypeParam field;
    EXPECT_EQ(E_POINTER, raised_by([&] { field.SetOwner(nullptr); }));
    EXPECT_EQ(1u, this->recorder.assertions().size());
}

TYPED_TEST(unify_control_of_each_interface, is_usable_visible_and_filled_until_told_otherwise) {
    TypeParam field;
    const std::size_t reports = this->stray_calls([&] {
        EXPECT_EQ(0, field.get_Count());
        EXPECT_TRUE(field.get_Enabled());
        EXPECT_FALSE(field.get_Hidden());
        EXPECT_FALSE(field.IsEmpty());
        field.put_Enabled(false);
        EXPECT_FALSE(field.get_Enabled());
        field.put_Enabled(true);
        EXPECT_TRUE(field.get_Enabled());
    });
    EXPECT_EQ(0u, reports);
}

TYPED_TEST(unify_control_of_each_interface, reports_each_stray_call_and_raises_nothing) {
    TypeParam field;
    EXPECT_EQ(1u, this->stray_calls([&] { field.Select(1); }));
    CString text = L"as it was";
    EXPECT_EQ(1u, this->stray_calls([&] { EXPECT_EQ(0, field.get_Item(0, &text)); }));
    EXPECT_EQ(1u, this->stray_calls([&] { EXPECT_EQ(0, field.get_SelectedItem(&text)); }));
    EXPECT_EQ(1u, this->stray_calls([&] { EXPECT_FALSE(field.get_Checked(1)); }));
    EXPECT_EQ(1u, this->stray_calls([&] { field.put_Value(_variant_t(1L)); }));
    EXPECT_EQ(1u, this->stray_calls([&] {
        const _variant_t value = field.get_Value();
        EXPECT_EQ(VT_EMPTY, V_VT(&value));
    }));
    double low = 1.5;
    double high = 2.5;
    EXPECT_EQ(1u, this->stray_calls([&] { field.get_ValueRange(&low, &high); }));
    LONG first = 3;
    LONG last = 4;
    EXPECT_EQ(1u, this->stray_calls([&] { field.get_SpinRange(&first, &last); }));
    EXPECT_EQ(L"as it was", text);
    EXPECT_EQ(1.5, low);
    EXPECT_EQ(2.5, high);
    EXPECT_EQ(3, first);
    EXPECT_EQ(4, last);
}

class unify_control_in_a_row : public test::fields_fixture {
protected:
    // A value that the field takes, where it takes any.
    static _variant_t value_for(OD_UpdateEntity entity) {
        switch (entity) {
            case eODUE_AskBid:
                return {101.5};
            case eODUE_GtdDate:
                return {45000.25, VT_DATE};
            default:
                return {L"7"};
        }
    }
};

TEST_F(unify_control_in_a_row, no_field_answers_whether_an_item_is_checked) {
    make_ready_tab();
    for (unsigned bit = eODUE_Symbol; bit <= eODUE_Sell; bit <<= 1) {
        reset_record();
        EXPECT_FALSE(field(static_cast<OD_UpdateEntity>(bit)).get_Checked(1)) << bit;
        EXPECT_EQ((std::vector<std::wstring>{L"0"}), reported()) << bit;
    }
}

// Which fields take which call without a report: the others are stray.
TEST_F(unify_control_in_a_row, quantity_and_date_have_no_range) {
    make_ready_tab();
    for (const OD_UpdateEntity entity : {eODUE_Quantity, eODUE_GtdDate}) {
        reset_record();
        double low = 1.5;
        LONG first = 3;
        field(entity).get_ValueRange(&low, nullptr);
        field(entity).get_SpinRange(&first, nullptr);
        EXPECT_EQ((std::vector<std::wstring>{L"0", L"0"}), reported()) << entity;
        EXPECT_EQ(1.5, low);
        EXPECT_EQ(3, first);
    }
}

TEST_F(unify_control_in_a_row, only_lists_and_buttons_are_selected) {
    make_ready_tab();
    for (const OD_UpdateEntity entity :
         {eODUE_Symbol, eODUE_Quantity, eODUE_FirstPrice, eODUE_SecondPrice, eODUE_GtdDate, eODUE_AskBid}) {
        reset_record();
        field(entity).Select(1);
        EXPECT_EQ((std::vector<std::wstring>{L"0"}), reported()) << entity;
        EXPECT_EQ(0, field(entity).get_Count());
    }
}

// Each operation that a field may lack, under the name of its kind.
enum lacking : unsigned {
    no_selection = 1,
    no_items = 2,
    no_value_put = 4,
    no_value_given = 8,
    no_value_range = 16,
    no_spin_range = 32,
};

TEST_F(unify_control_in_a_row, each_field_lacks_what_it_does_not_offer_and_nothing_else) {
    make_ready_tab();
    constexpr unsigned no_ranges = no_value_range | no_spin_range;
    constexpr unsigned no_values = no_value_put | no_value_given;
    const std::pair<OD_UpdateEntity, unsigned> rows[] = {
        {eODUE_Symbol, no_selection | no_items | no_ranges},
        {eODUE_OrderType, no_values | no_ranges},
        {eODUE_Quantity, no_selection | no_items | no_ranges},
        {eODUE_FirstPrice, no_selection | no_items},
        {eODUE_SecondPrice, no_selection | no_items},
        {eODUE_Account, no_values | no_ranges},
        {eODUE_TimeInForce, no_values | no_ranges},
        {eODUE_GtdDate, no_selection | no_items | no_ranges},
        {eODUE_AskBid, no_selection | no_items | no_value_given | no_ranges},
        {eODUE_Buy, no_items | no_value_put | no_ranges},
        {eODUE_Sell, no_items | no_value_put | no_ranges}};
    for (const auto& [entity, lacked] : rows) {
        IUnifyControl& asked = field(entity);
        const std::pair<unsigned, std::function<void()>> operations[] = {
            {no_selection, [&] { asked.Select(1); }},
            {no_items, [&] { asked.get_Item(0, nullptr); }},
            {no_items, [&] { asked.get_SelectedItem(nullptr); }},
            {no_value_put, [&] { asked.put_Value(value_for(entity)); }},
            {no_value_given, [&] { asked.get_Value(); }},
            {no_value_range, [&] { asked.get_ValueRange(nullptr, nullptr); }},
            {no_spin_range, [&] { asked.get_SpinRange(nullptr, nullptr); }}};
        for (const auto& [kind, operation] : operations) {
            reset_record();
            operation();
            const std::vector<std::wstring> stray = {L"0"};
            EXPECT_EQ((lacked & kind) != 0 ? stray : std::vector<std::wstring>(), reported())
                << entity << " " << kind;
        }
    }
}

TEST_F(unify_control_in_a_row, lists_take_and_give_no_value) {
    make_ready_tab();
    for (const OD_UpdateEntity entity : {eODUE_OrderType, eODUE_Account, eODUE_TimeInForce}) {
        reset_record();
        const LONG selected = field(entity).get_SelectedItem(nullptr);
        field(entity).put_Value(_variant_t(2L));
        const _variant_t value = field(entity).get_Value();
        EXPECT_EQ(VT_EMPTY, V_VT(&value));
        EXPECT_EQ(selected, field(entity).get_SelectedItem(nullptr));
        EXPECT_EQ((std::vector<std::wstring>{L"0", L"0"}), reported()) << entity;
    }
}

}  // namespace
}  // namespace OV_OrderDeck
