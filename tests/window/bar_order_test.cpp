// In which order the bar does things, and what each of its ways to change something brings along.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include "tests/support/win32/told_import.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using test::told_import;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using window_tests::fake_tab;

static_assert(UpdateMask::AllFieldsAndRepaint == 0x3FF82);

class BarOrder : public window_tests::bar_test {
protected:
    boost::shared_ptr<fake_tab> make(const CString& name, ETM_ConnectionChanged state) {
        return boost::make_shared<fake_tab>(host, name, state);
    }
    LONG parameter(int index) const {
        TCITEMW item = {};
        item.mask = TCIF_PARAM;
        SendMessageW(strip(), TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        return static_cast<LONG>(item.lParam);
    }
};

TEST_F(BarOrder, TheFirstIdOfAProcessIsOne) {
    add(L"A");
    EXPECT_EQ(fake_tab::lowest_id(), 1);
}

TEST_F(BarOrder, IdsGoOnInAnotherBarAndStandInTheItems) {
    const auto first = add(L"A");
    window_tests::counting_owner other_owner;
    COrderDeckWindow other(frame, other_owner);
    const auto second = make(L"B", eTM_CC_Connected);
    EXPECT_EQ(other.AddTab(second, true), first->id + 1);
    const auto third = add(L"C");
    EXPECT_EQ(third->id, first->id + 2);
    EXPECT_EQ(parameter(0), first->id);
    EXPECT_EQ(parameter(1), third->id);
}

TEST_F(BarOrder, ANewTabIsAskedForStateThenNameAndToldItsIdWhenItIsKnown) {
    const auto tab = make(L"A", eTM_CC_Connected);
    bool known = false;
    bool shown = true;
    tab->when_told_id = [&](LONG id) {
        known = bar->get_Tab(id) == tab;
        shown = IsWindowVisible(strip()) != FALSE;
    };
    bar->AddTab(tab, false);
    EXPECT_THAT(tab->calls, ElementsAre("profile", "name", "id"));
    EXPECT_TRUE(known);
    EXPECT_FALSE(shown) << "showing comes last";
    EXPECT_TRUE(IsWindowVisible(strip()));
}

TEST_F(BarOrder, AStateThatIsKnownIsNotAskedOfTheHostAgain) {
    const auto tab = make(L"A", eTM_CC_Disconnected);
    tab->profile->get_ConnectionState(true);
    tab->host_profile->state = eTM_CC_Connected;
    bar->AddTab(tab, false);
    EXPECT_THAT(images(), ElementsAre(0));
    bar->Update(tab->id, UpdateMask::ConnectionState);
    EXPECT_THAT(images(), ElementsAre(0));
    tab->become(eTM_CC_Connected);
    bar->Update(tab->id, UpdateMask::ConnectionState);
    EXPECT_THAT(images(), ElementsAre(1));
}

TEST_F(BarOrder, AnItemComesWithTextImageAndIdAtOnce) {
    static std::vector<UINT> masks;
    masks.clear();
    const auto spy = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                        DWORD_PTR) -> LRESULT {
        if (message == TCM_INSERTITEMW) {
            masks.push_back(reinterpret_cast<const TCITEMW*>(lParam)->mask);
        }
        return DefSubclassProc(window, message, wParam, lParam);
    };
    SetWindowSubclass(strip(), spy, 1, 0);
    add(L"A");
    RemoveWindowSubclass(strip(), spy, 1);
    EXPECT_THAT(masks, ElementsAre(11u));
}

TEST_F(BarOrder, RemovingATabShowsABarThatWasHidden) {
    const auto tab = add(L"A");
    add(L"B");
    bar->Show(false);
    bar->RemoveTab(tab->id);
    EXPECT_TRUE(IsWindowVisible(strip()));
    EXPECT_TRUE(IsWindowVisible(panel()));
}

TEST_F(BarOrder, AHiddenBarIsBroughtUpToDateAllTheSame) {
    const auto tab = add(L"A");
    tab->asked.clear();
    bar->Show(false);
    EXPECT_THAT(tab->asked, Contains(0x80u));
    EXPECT_THAT(tab->asked, Contains(0x20000u));
}

TEST_F(BarOrder, TheTextForAMissingProfileIsNowhereInTheBar) {
    bar->Show(true);
    std::vector<CString> texts;
    const auto note = [](HWND window, LPARAM data) -> BOOL {
        wchar_t text[50] = {};
        GetWindowTextW(window, text, 50);
        reinterpret_cast<std::vector<CString>*>(data)->emplace_back(text);
        return TRUE;
    };
    EnumChildWindows(bar->get_Hwnd(), note, reinterpret_cast<LPARAM>(&texts));
    EXPECT_THAT(texts, Contains(CString(L"設定經紀商")));
    EXPECT_THAT(texts, Not(Contains(CString(L"無經紀商"))));
}

// What the bar paints at once: window and flags, and how many fields had been asked by then.
struct painted {
    HWND window;
    UINT flags;
    std::size_t asked;
    bool operator==(const painted&) const = default;
};

class BarPaints : public BarOrder {
protected:
    BarPaints() : tab(add(L"A", eTM_CC_Connected)), other(add(L"B")) {
        tab->asked.clear();
        m_paints.clear();
    }
    // What the bar painted of its strip and its panel since the last call.
    std::vector<painted> paints() { return std::exchange(m_paints, {}); }
    static constexpr UINT at_once = 0x105;

    boost::shared_ptr<fake_tab> tab;
    boost::shared_ptr<fake_tab> other;

private:
    using system_call = told_import<"RedrawWindow", decltype(RedrawWindow)>;
    std::vector<painted> m_paints;
    system_call m_told{[this](HWND window, const RECT* part, HRGN region, UINT flags) {
        if (window == panel() || window == strip()) {
            EXPECT_EQ(part, nullptr);
            EXPECT_EQ(region, nullptr);
            m_paints.push_back({window, flags, tab ? tab->asked.size() : 0});
        }
        return system_call::real(window, part, region, flags);
    }};
};

TEST_F(BarPaints, ARepaintAloneAndNothingElse) {
    bar->Update(tab->id, 2);
    EXPECT_EQ(paints(), (std::vector<painted>{{panel(), at_once, 0}}));
    bar->Update(other->id, 2);
    EXPECT_THAT(paints(), IsEmpty()) << "a tab that nobody sees";
}

TEST_F(BarPaints, TheFieldsFirstAndThePanelLast) {
    bar->Update(tab->id, UpdateMask::Buttons | UpdateMask::Repaint);
    EXPECT_EQ(paints(), (std::vector<painted>{{panel(), at_once, 2}}));
    bar->Update(tab->id, UpdateMask::Buttons);
    EXPECT_THAT(paints(), IsEmpty());
}

TEST_F(BarPaints, TheStripForAConnection) {
    bar->Update(other->id, UpdateMask::ConnectionState);
    EXPECT_EQ(paints(), (std::vector<painted>{{strip(), at_once, 0}}));
    SendMessageW(strip(), TCM_DELETEITEM, 1, 0);
    bar->Update(other->id, UpdateMask::ConnectionState);
    EXPECT_THAT(paints(), IsEmpty()) << "there is no such item any more";
}

TEST_F(BarPaints, TheStripAfterALateSelectionFromTheMessageLoop) {
    bar->Deserialize(L"Software\\OrderDeck Tests\\absent");
    EXPECT_THAT(paints(), IsEmpty());
    std::vector<painted> late;
    EXPECT_TRUE(pump_until([&] {
        const auto more = paints();
        late.insert(late.end(), more.begin(), more.end());
        return !late.empty();
    }));
    EXPECT_EQ(late, (std::vector<painted>{{strip(), at_once, 0}}));
}

// Each way to another tab: whether what comes and goes slides, and whether the quantity stays.
class BarSwitch : public BarOrder {
protected:
    BarSwitch() : first(add(L"A")), second(add(L"B")) {
        second->symbol->category = 7;
        second->field(eODUE_FirstPrice).hidden = true;
    }
    void expect_second(bool slid, bool kept_quantity) {
        EXPECT_EQ(bar->get_CurTab(), second);
        EXPECT_EQ(!m_timers.empty(), slid);
        EXPECT_EQ(second->field(eODUE_Quantity).values.empty(), kept_quantity);
        EXPECT_THAT(second->asked, Contains(0x20000u));
    }

    boost::shared_ptr<fake_tab> first;
    boost::shared_ptr<fake_tab> second;

private:
    using system_call = told_import<"SetTimer", decltype(SetTimer)>;
    std::vector<UINT_PTR> m_timers;
    system_call m_told{[this](HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
        if (window == panel()) {
            m_timers.push_back(id);
        }
        return system_call::real(window, id, period, procedure);
    }};
};

TEST_F(BarSwitch, AUsersClickSlidesAndKeepsTheQuantity) {
    POINT at = tab_centre(1);
    ScreenToClient(strip(), &at);
    SendMessageW(strip(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageW(strip(), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    expect_second(true, true);
}

TEST_F(BarSwitch, AClickOnAnInactiveBarSlidesAndKeepsTheQuantity) {
    const told_import<"GetCursorPos", decltype(GetCursorPos)> mouse([this](LPPOINT where) {
        *where = tab_centre(1);
        return TRUE;
    });
    EXPECT_EQ(SendMessageW(bar->get_Hwnd(), WM_MOUSEACTIVATE, 0, 0), MA_ACTIVATE);
    expect_second(true, true);
    second->asked.clear();
    SendMessageW(bar->get_Hwnd(), WM_MOUSEACTIVATE, 0, 0);
    EXPECT_THAT(second->asked, IsEmpty()) << "it is current already";
}

TEST_F(BarSwitch, AProgramsChoiceSlidesAndSetsTheQuantity) {
    bar->SelectTab(second->id);
    expect_second(true, false);
}

TEST_F(BarSwitch, TheTabThatWasRememberedComesAsAProgramsChoice) {
    bar->RemoveTab(first->id);
    const auto last = add(L"C");
    bar->SelectTab(last->id);
    second->field(eODUE_Quantity).values.clear();
    bar->Deserialize(L"Software\\OrderDeck Tests\\absent");
    expect_second(true, false);
}

TEST_F(BarSwitch, ShowingDoesNotSlideAndSetsTheQuantity) {
    bar->RemoveTab(first->id);
    expect_second(false, false);
}

// Which of the bar's things end, in order.
class BarEnd : public BarOrder {
protected:
    BarEnd() : tab(add(L"A")), images_of_bar(TabCtrl_GetImageList(strip())) {}

    boost::shared_ptr<fake_tab> tab;
    HIMAGELIST images_of_bar;
    std::vector<std::string> ended;

private:
    using end_window = told_import<"DestroyWindow", decltype(DestroyWindow)>;
    using end_images = told_import<"ImageList_Destroy", decltype(ImageList_Destroy)>;
    end_window m_windows{[this](HWND window) {
        if (bar && window == bar->get_Hwnd()) {
            ended.emplace_back(tab.use_count() == 2 ? "window, with its tabs" : "window");
        }
        return end_window::real(window);
    }};
    end_images m_images{[this](HIMAGELIST list) {
        if (list == images_of_bar) {
            ended.emplace_back(tab.use_count() == 1 ? "images, after the tabs" : "images");
        }
        return end_images::real(list);
    }};
};

TEST_F(BarEnd, ATeardownEndsTheWindowThenTheTabsThenTheImages) {
    bar->Teardown();
    EXPECT_THAT(ended, ElementsAre("window, with its tabs", "images, after the tabs"));
    bar->Teardown();
    EXPECT_EQ(ended.size(), 2u) << "once";
}

TEST_F(BarEnd, ATeardownAfterTheHostEndedTheWindowEndsTheRest) {
    DestroyWindow(bar->get_Hwnd());
    ended.clear();
    EXPECT_EQ(tab.use_count(), 2) << "tabs are released by the bar, not with its window";
    bar->Teardown();
    EXPECT_THAT(ended, ElementsAre("images, after the tabs"));
}

TEST_F(BarEnd, TheBarsOwnEndGoesTheSameWay) {
    bar.reset();
    EXPECT_THAT(ended, ElementsAre("images, after the tabs"));
    EXPECT_EQ(tab.use_count(), 1);
}

}  // namespace
