#include "charting/orderdeck/src/tab/Controls/Lookup.h"

#include <gtest/gtest.h>

#include "tests/tab/symbol_control_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;
using test::symbol_control;

TEST_F(symbol_control, starts_empty_and_without_a_service) {
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_FALSE(control().get_Symbol().valid());
    EXPECT_EQ(L"", text(eODUE_Symbol));
    EXPECT_EQ(0, host.count("LookupImpl"));
}

TEST_F(symbol_control, is_usable_in_every_state) {
    disconnect();
    EXPECT_TRUE(control().get_Enabled());
    control().put_Enabled(false);
    EXPECT_FALSE(control().get_Enabled());
}

TEST_F(symbol_control, shows_the_name_of_its_record) {
    control().LookupByText(L"ESZ6", false, true);
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
    EXPECT_FALSE(control().IsEmpty());
}

TEST_F(symbol_control, a_record_of_zeros_is_a_symbol) {
    symbol_info_holder zeros;
    tab->put_SymbolInfo(zeros);
    EXPECT_FALSE(control().IsEmpty());
    EXPECT_EQ(L"", text(eODUE_Symbol));
}

TEST_F(symbol_control, a_typed_text_is_looked_up_loudly_and_may_ask_to_connect) {
    disconnect();
    desktop.answer_message_box(IDNO);
    control().put_Value(_variant_t(L"ESZ6"));
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"ESZ6\", 0, null)"));
    EXPECT_EQ(1, asked());
}

TEST_F(symbol_control, takes_text_only) {
    for (const _variant_t& value : {_variant_t(), _variant_t(LONG{5}), _variant_t(1.5)}) {
        EXPECT_EQ(DISP_E_TYPEMISMATCH, raised_by([&] { control().put_Value(value); }));
    }
    EXPECT_EQ(3u, reported().size());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(symbol_control, gives_category_scale_and_movement_of_its_record) {
    test::symbol all = instrument(L"ZB");
    all.category = 11;
    all.price_scale_code = 'k';
    all.min_movement = 2.5;
    put_symbol(all);
    reset_record();
    EXPECT_EQ(11, control().get_Category());
    EXPECT_EQ('k', control().get_PriceScaleCode());
    EXPECT_EQ(2.5, control().get_MinMovement());
    EXPECT_TRUE(reported().empty());
}

TEST_F(symbol_control, reading_a_record_that_is_not_valid_is_reported_and_goes_on) {
    EXPECT_EQ(254, control().get_Category());
    EXPECT_EQ(0x7FFFFFFF, control().get_PriceScaleCode());
    EXPECT_EQ(std::numeric_limits<double>::max(), control().get_MinMovement());
    EXPECT_EQ((std::vector<std::wstring>{L"valid()", L"valid()", L"valid()"}), reported());
}

TEST_F(symbol_control, makes_its_service_on_the_first_lookup_and_keeps_it) {
    const HWND frame = desktop.make_window();
    desktop.set_main_frame(frame);
    control().LookupByName(L"nothing");
    EXPECT_EQ((calls{"Class(\"LookupImpl\").CreateInstance()",
                     "Lookup.Initialize(" + std::to_string(reinterpret_cast<INT_PTR>(frame)) +
                         ", \"CQG-FIX\", 0, null)",
                     "Lookup.GetSymbolInfo(\"nothing\", 1, null)"}),
              host.take());
    control().LookupById(3);
    control().IsPluginSupported(L"x");
    EXPECT_EQ((calls{"Lookup.GetSymbolInfoById(3)", "Lookup.IsPluginSupported(\"x\")"}), host.calls());
}

TEST_F(symbol_control, takes_the_components_own_service_where_none_is_registered) {
    lookup_class.reset();
    EXPECT_TRUE(control().IsPluginSupported(L"CQG-FIX"));
    EXPECT_FALSE(control().IsPluginSupported(L"x"));
    EXPECT_TRUE(control().IsPluginSupported(L"")) << "it knows the plug-in of the row";
    EXPECT_TRUE(reported().empty());
    EXPECT_EQ(0, host.count("Lookup"));
}

TEST_F(symbol_control, takes_the_service_wherever_it_lives) {
    com_ptr<IUnknown> factory;
    ASSERT_EQ(S_OK, CoGetClassObject(__uuidof(LookupImpl), CLSCTX_INPROC_SERVER, nullptr, __uuidof(IUnknown),
                                     static_cast<void**>(platform::receive(factory))));
    lookup_class.reset();
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, CoRegisterClassObject(__uuidof(LookupImpl), factory.get(), CLSCTX_LOCAL_SERVER,
                                          REGCLS_MULTIPLEUSE, &cookie));
    control().LookupByName(L"nothing");
    EXPECT_EQ(S_OK, CoRevokeClassObject(cookie));
    EXPECT_EQ(1, host.count("Class(\"LookupImpl\").CreateInstance()"));
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"nothing\", 1, null)"));
}

TEST_F(symbol_control, lets_its_service_go_with_the_row) {
    control().LookupByName(L"nothing");
    const ULONG with_row = (lookup->AddRef(), lookup->Release());
    bar->RemoveAllTabs();
    tab.reset();
    EXPECT_EQ(with_row - 1, (lookup->AddRef(), lookup->Release()));
}

TEST_F(symbol_control, that_the_service_can_not_be_made_is_raised_and_tried_again) {
    host.fail("Class.CreateInstance", E_ACCESSDENIED, 1);
    EXPECT_EQ(E_ACCESSDENIED, raised_by([&] { control().LookupByName(L"ESZ6"); }));
    EXPECT_EQ((std::vector<HRESULT>{E_ACCESSDENIED}), reported_codes());
    EXPECT_TRUE(control().IsEmpty());
    control().LookupByName(L"ESZ6");
    EXPECT_FALSE(control().IsEmpty());
}

TEST_F(symbol_control, that_the_service_does_not_start_is_raised_and_tried_again) {
    host.fail("Lookup.Initialize", E_ABORT, 1);
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupByName(L"ESZ6"); }));
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT}), reported_codes());
    EXPECT_EQ(0, host.count("GetSymbolInfo"));
    control().LookupByName(L"ESZ6");
    EXPECT_EQ(2, host.count("CreateInstance"));
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
}

// Says that it has every interface and gives none.
class hollow_service : public platform::com_root<IOD_LookupFilter> {
public:
    STDMETHODIMP IsFiltered(BSTR, BSTR, LONG, BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }

protected:
    HRESULT internal_query(REFIID iid, void** out) {
        if (IsEqualIID(iid, __uuidof(IOD_LookupImpl))) {
            *out = nullptr;
            return S_OK;
        }
        return com_root::internal_query(iid, out);
    }
};

TEST_F(symbol_control, a_service_that_is_nothing_is_raised) {
    service = platform::make_com<hollow_service>()->GetUnknown();
    EXPECT_TRUE(FAILED(raised_by([&] { control().LookupByName(L"ESZ6"); })));
    EXPECT_EQ(1, host.count("Class(\"LookupImpl\").CreateInstance()"));
    EXPECT_EQ(1u, reported().size());
    EXPECT_TRUE(control().IsEmpty());
}

TEST_F(symbol_control, hands_the_present_symbol_to_the_service) {
    control().LookupByText(L"ESZ6", false, true);
    EXPECT_FALSE(lookup->had_selected);
    control().LookupByText(L"NQZ6", false, false);
    EXPECT_TRUE(lookup->had_selected);
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"ESZ6\", 1, null)"));
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"NQZ6\", 0, \"ESZ6\")"));
}

TEST_F(symbol_control, a_failing_service_is_raised_and_the_record_stays) {
    control().LookupByText(L"ESZ6", false, true);
    reset_record();
    host.fail_and_write("Lookup.GetSymbolInfo", E_ABORT);
    host.fail("Lookup.GetSymbolInfoById", E_HANDLE);
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupByText(L"NQZ6", true, false); }));
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupByName(L"NQZ6"); }));
    EXPECT_EQ(E_ABORT, raised_by([&] { control().LookupWithDialog(); }));
    EXPECT_EQ(E_HANDLE, raised_by([&] { control().LookupById(55); }));
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT, E_ABORT, E_ABORT, E_HANDLE}), reported_codes());
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
    EXPECT_EQ(0, told_host());
    EXPECT_EQ(0, asked());
}

TEST_F(symbol_control, a_service_that_answers_nothing_counts_as_canceled) {
    host.leave_unwritten("Lookup.GetSymbolInfo");
    host.leave_unwritten("Lookup.GetSymbolInfoById");
    control().LookupByText(L"ESZ6", true, false);
    control().LookupByName(L"ESZ6");
    control().LookupById(55);
    control().LookupWithDialog();
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_EQ(0, asked());
    EXPECT_EQ(0, told_host());
}

TEST_F(symbol_control, a_date_outside_the_calendar_leaves_the_record_as_it_was) {
    control().LookupByText(L"ESZ6", false, true);
    lookup->by_name[L"NQZ6"].expiry = 1e300;
    EXPECT_ANY_THROW(control().LookupByText(L"NQZ6", false, true));
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
}

TEST_F(symbol_control, the_text_of_the_present_symbol_leaves_the_row_untouched) {
    control().LookupByText(L"ESZ6", false, true);
    type(eODUE_FirstPrice, L"90");
    reset_record();
    control().LookupByText(L"ESZ6", false, false);
    EXPECT_EQ((calls{"Lookup.GetSymbolInfo(\"ESZ6\", 0, \"ESZ6\")"}), host.calls());
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
}

TEST_F(symbol_control, an_empty_text_clears_the_symbol_without_asking_anyone) {
    control().LookupByText(L"ESZ6", false, true);
    reset_record();
    control().put_Value(_variant_t(L""));
    EXPECT_TRUE(control().IsEmpty());
    EXPECT_EQ(L"", text(eODUE_Symbol));
    EXPECT_EQ(0, host.count("Lookup"));
    EXPECT_EQ(1, told_host());
    EXPECT_EQ(0, asked());
    reset_record();
    control().LookupByText(L"", true, true);
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(symbol_control, the_same_symbol_can_come_back_after_it_was_cleared) {
    control().LookupByText(L"ESZ6", false, true);
    control().LookupByText(L"", false, true);
    reset_record();
    control().LookupByText(L"ESZ6", false, true);
    EXPECT_EQ(L"ESZ6", text(eODUE_Symbol));
    EXPECT_EQ(1, told_host());
}

}  // namespace
}  // namespace OV_OrderDeck
