#include "charting/orderdeck/src/window/AddHotKeysToMenu.h"

#include <gmock/gmock.h>

#include <tuple>
#include <utility>

#include "tests/support/diagnostics_recorder.h"
#include "tests/support/win32/told_import.h"
#include "tests/window/hot_keys_fixture.h"
#include "tests/window/menu_user.h"

namespace {

using namespace OV_OrderDeck;
using hotkeys::CommandsMap;
using testing::ElementsAre;
using testing::IsEmpty;

// Every item names a command of its own id.
CommandsMap::cmd_id by_id(UINT id) {
    return {1, L"item " + std::to_wstring(id), nullptr};
}

class AddHotKeys : public testing::Test {
protected:
    ~AddHotKeys() override { DestroyMenu(menu); }

    // Whatever fails on the way, nobody is told.
    void TearDown() override {
        EXPECT_THAT(reports.assertions(), IsEmpty());
        EXPECT_THAT(reports.traces(), IsEmpty());
    }

    static void append(HMENU to, UINT id, const wchar_t* text) { AppendMenuW(to, MF_STRING, id, text); }
    void bind(UINT id, std::uint32_t key) {
        keys.told().bind(1, (L"item " + std::to_wstring(id)).c_str(), key);
    }
    static std::vector<std::wstring> texts(HMENU of) {
        std::vector<std::wstring> all;
        for (const window_tests::menu_line& line : window_tests::lines_of(of)) {
            all.push_back(line.text);
        }
        return all;
    }

    diagnostics_recorder reports;
    window_tests::hot_keys keys;
    HMENU menu = CreatePopupMenu();
};

constexpr std::uint32_t f2 = 113;
constexpr std::uint32_t shift_f3 = 1u << 16 | 114;

TEST_F(AddHotKeys, EachItemGetsTheKeyOfItsCommand) {
    append(menu, 5, L"five");
    append(menu, 6, L"six");
    append(menu, 7, L"seven");
    bind(5, f2);
    bind(7, shift_f3);
    AddHotKeysToMenu(menu, &by_id);
    EXPECT_THAT(texts(menu), ElementsAre(L"five\tF2", L"six", L"seven\tShift + F3"));
}

TEST_F(AddHotKeys, AnOldKeyIsReplacedWhenThereIsANewOneAndStaysWhenThereIsNone) {
    append(menu, 5, L"five\tCtrl + Q");
    append(menu, 6, L"six\tCtrl + Q");
    append(menu, 7, L"seven\tCtrl + Q");
    bind(5, f2);
    bind(7, 0);
    AddHotKeysToMenu(menu, &by_id);
    EXPECT_THAT(texts(menu), ElementsAre(L"five\tF2", L"six\tCtrl + Q", L"seven"));
    AddHotKeysToMenu(menu, &by_id);
    EXPECT_THAT(texts(menu), ElementsAre(L"five\tF2", L"six\tCtrl + Q", L"seven"));
}

TEST_F(AddHotKeys, SubmenusAreDecoratedAtAnyDepthBeforeTheirItem) {
    const HMENU middle = CreatePopupMenu();
    const HMENU inner = CreatePopupMenu();
    append(inner, 9, L"deep");
    AppendMenuW(middle, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), L"inner");
    append(middle, 8, L"next");
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(middle), L"middle");
    append(menu, 5, L"last");
    bind(9, f2);
    bind(8, f2);
    bind(5, f2);
    std::vector<UINT> asked;
    AddHotKeysToMenu(menu, [&](UINT id) {
        if (id == 9 || id == 8 || id == 5) {
            asked.push_back(id);
        }
        return by_id(id);
    });
    EXPECT_THAT(texts(inner), ElementsAre(L"deep\tF2"));
    EXPECT_THAT(texts(middle), ElementsAre(L"inner", L"next\tF2"));
    EXPECT_THAT(texts(menu), ElementsAre(L"middle", L"last\tF2"));
    EXPECT_THAT(asked, ElementsAre(9u, 8u, 5u));
}

TEST_F(AddHotKeys, StateAndIdOfAnItemStay) {
    AppendMenuW(menu, MF_STRING | MF_GRAYED | MF_CHECKED, 5, L"five");
    bind(5, f2);
    AddHotKeysToMenu(menu, &by_id);
    EXPECT_EQ(GetMenuItemID(menu, 0), 5u);
    EXPECT_EQ(GetMenuState(menu, 0, MF_BYPOSITION), static_cast<UINT>(MF_GRAYED | MF_CHECKED));
}

// The system's reading of items, which fails where a test says.
class told_reads {
public:
    using get_item = test::told_import<"GetMenuItemInfoW", decltype(GetMenuItemInfoW)>;
    struct read {
        UINT position;
        UINT mask;
        UINT limit;
        bool operator==(const read&) const = default;
    };
    std::vector<read> reads;
    // A position and a mask whose read fails.
    std::pair<UINT, UINT> failing = {99, 0};

private:
    BOOL answer(HMENU menu, UINT position, BOOL by_position, LPMENUITEMINFOW item) {
        reads.push_back({position, item->fMask, item->cch});
        const bool fails = failing == std::pair(position, item->fMask);
        return fails ? FALSE : get_item::real(menu, position, by_position, item);
    }

    get_item m_told{[this](auto... told) { return answer(told...); }};
};

TEST_F(AddHotKeys, AnItemThatCannotBeReadIsLeftAndTheNextOnesAreNot) {
    std::vector<UINT> asked;
    const auto noting = [&](UINT id) {
        asked.push_back(id);
        return by_id(id);
    };
    append(menu, 5, L"five");
    append(menu, 6, L"six");
    append(menu, 7, L"seven");
    for (const UINT id : {0u, 5u, 6u, 7u}) {
        bind(id, f2);
    }
    {
        told_reads system;
        system.failing = {1, MIIM_ID | MIIM_SUBMENU};
        AddHotKeysToMenu(menu, noting);
    }
    EXPECT_THAT(texts(menu), ElementsAre(L"five\tF2", L"six", L"seven\tF2"));
    EXPECT_THAT(asked, ElementsAre(5u, 7u)) << "no command is asked for without an id";
}

TEST_F(AddHotKeys, AnItemWhoseTextCannotBeReadKeepsIt) {
    append(menu, 5, L"five");
    append(menu, 6, L"six");
    bind(5, f2);
    bind(6, f2);
    {
        told_reads system;
        system.failing = {0, MIIM_STRING};
        AddHotKeysToMenu(menu, &by_id);
    }
    EXPECT_THAT(texts(menu), ElementsAre(L"five", L"six\tF2"));
}

TEST_F(AddHotKeys, AnItemIsReadByItsPlaceForIdAndSubmenuAndForItsTextOnlyWhenThereIsAKey) {
    append(menu, 5, L"five");
    append(menu, 6, L"six");
    bind(6, f2);
    told_reads system;
    AddHotKeysToMenu(menu, &by_id);
    EXPECT_THAT(system.reads, ElementsAre(told_reads::read{0, 6, 0x104}, told_reads::read{1, 6, 0x104},
                                          told_reads::read{1, MIIM_STRING, 0x104}));
}

TEST_F(AddHotKeys, OnlyTheTextIsWrittenBack) {
    using set_item = test::told_import<"SetMenuItemInfoW", decltype(SetMenuItemInfoW)>;
    append(menu, 5, L"five");
    append(menu, 6, L"six");
    bind(6, f2);
    std::vector<std::tuple<UINT, BOOL, UINT, std::wstring>> written;
    const set_item told([&](HMENU of, UINT position, BOOL by_position, LPCMENUITEMINFOW item) {
        written.emplace_back(position, by_position, item->fMask, item->dwTypeData);
        return set_item::real(of, position, by_position, item);
    });
    AddHotKeysToMenu(menu, &by_id);
    EXPECT_THAT(written, ElementsAre(std::tuple(1u, TRUE, 0x40u, L"six\tF2")));
}

TEST_F(AddHotKeys, OfALongTextTheFirstTwoHundredAndFiftyNineCharactersStay) {
    append(menu, 5, std::wstring(300, L'a').c_str());
    bind(5, f2);
    AddHotKeysToMenu(menu, &by_id);
    wchar_t text[400] = {};
    GetMenuStringW(menu, 0, text, 400, MF_BYPOSITION);
    EXPECT_EQ(text, std::wstring(259, L'a') + L"\tF2");
}

TEST_F(AddHotKeys, NothingHappensWithoutAMenuOrAMapper) {
    append(menu, 5, L"five");
    bind(5, f2);
    AddHotKeysToMenu(nullptr, &by_id);
    AddHotKeysToMenu(reinterpret_cast<HMENU>(1), &by_id);
    AddHotKeysToMenu(menu, {});
    EXPECT_THAT(texts(menu), ElementsAre(L"five"));
    EXPECT_THAT(keys.told().calls(), IsEmpty());
}

TEST_F(AddHotKeys, WithoutTheLibraryItemsStayAsTheyAre) {
    append(menu, 5, L"five\tCtrl + Q");
    bind(5, f2);
    AddHotKeysToMenu(menu, &by_id, hotkeys::CHotKeyLibrary(L"NoHotKeyServices.dll"));
    EXPECT_THAT(texts(menu), ElementsAre(L"five\tCtrl + Q"));
}

}  // namespace
