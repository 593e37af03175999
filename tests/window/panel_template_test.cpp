#include <windows.h>

#include <commctrl.h>

#include "tests/window/bar_fixture.h"

namespace {

struct template_item {
    int id;
    const wchar_t* class_name;
    int x, y, width, height;
    const wchar_t* text;
};

// The order row as it was drawn up, in dialog units.
const template_item row[] = {
    {203, L"Edit", 7, 7, 78, 15, L""},
    {206, L"ComboBox", 90, 7, 48, 30, L""},
    {209, L"Edit", 143, 7, 59, 15, L""},
    {214, L"Edit", 207, 7, 59, 15, L""},
    {213, L"msctls_updown32", 685, 14, 11, 13, L""},
    {217, L"Edit", 271, 7, 59, 15, L""},
    {216, L"msctls_updown32", 700, 14, 11, 13, L""},
    {231, L"Button", 335, 8, 56, 12, L"AskBid"},
    {220, L"ComboBox", 395, 7, 68, 30, L""},
    {222, L"ComboBox", 467, 7, 37, 30, L""},
    {228, L"SysDateTimePick32", 509, 7, 64, 15, L""},
    {225, L"Button", 584, 3, 44, 23, L""},
    {227, L"Button", 631, 3, 44, 23, L""},
};

// One item of a template as it stands in the resource.
struct stored_item {
    DWORD style;
    short x, y, width, height;
    DWORD id;
    CString class_name;
    CString text;
};

struct stored_template {
    DWORD style = 0;
    short width = 0, height = 0;
    WORD point_size = 0;
    CString face;
    std::vector<stored_item> items;
};

// Reads a DIALOGEX resource by its published layout.
class template_reader {
public:
    explicit template_reader(int id) {
        const HMODULE module = GetModuleHandleW(nullptr);
        const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), RT_DIALOG);
        m_at = static_cast<const BYTE*>(LockResource(LoadResource(module, found)));
        m_start = m_at;
    }

    stored_template read() {
        stored_template result;
        EXPECT_EQ(take<WORD>(), 1);
        EXPECT_EQ(take<WORD>(), 0xFFFF);
        take<DWORD>();
        take<DWORD>();
        result.style = take<DWORD>();
        const WORD count = take<WORD>();
        take<DWORD>();
        result.width = take<short>();
        result.height = take<short>();
        take_text();
        take_text();
        take_text();
        result.point_size = take<WORD>();
        take<WORD>();
        take<WORD>();
        result.face = take_text();
        for (WORD i = 0; i < count; ++i) {
            result.items.push_back(read_item());
        }
        return result;
    }

private:
    template <class T>
    T take() {
        T value;
        memcpy(&value, m_at, sizeof(T));
        m_at += sizeof(T);
        return value;
    }
    CString take_text() {
        WORD first = take<WORD>();
        if (first == 0xFFFF) {
            const wchar_t* const classes[] = {L"Button",  L"Edit",      L"Static",
                                              L"ListBox", L"ScrollBar", L"ComboBox"};
            return classes[take<WORD>() - 0x80];
        }
        CString text;
        for (; first != 0; first = take<WORD>()) {
            text += static_cast<wchar_t>(first);
        }
        return text;
    }
    stored_item read_item() {
        m_at = m_start + ((m_at - m_start) + 3) / 4 * 4;
        stored_item result = {};
        take<DWORD>();
        take<DWORD>();
        result.style = take<DWORD>();
        result.x = take<short>();
        result.y = take<short>();
        result.width = take<short>();
        result.height = take<short>();
        result.id = take<DWORD>();
        result.class_name = take_text();
        result.text = take_text();
        m_at += take<WORD>();
        return result;
    }

    const BYTE* m_at;
    const BYTE* m_start;
};

TEST(PanelTemplate, HoldsTheOrderRowItemByItem) {
    const stored_template panel = template_reader(202).read();
    EXPECT_EQ(panel.width, 751);
    EXPECT_EQ(panel.height, 34);
    EXPECT_EQ(panel.face, L"MS Shell Dlg");
    EXPECT_EQ(panel.point_size, 8);
    EXPECT_NE(panel.style & WS_CHILD, 0u);
    EXPECT_EQ(panel.style & (WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_POPUP), 0u);
    ASSERT_EQ(panel.items.size(), std::size(row));
    for (std::size_t i = 0; i < std::size(row); ++i) {
        const stored_item& item = panel.items[i];
        EXPECT_EQ(static_cast<int>(item.id), row[i].id);
        EXPECT_EQ(_wcsicmp(item.class_name.c_str(), row[i].class_name), 0) << row[i].id;
        EXPECT_EQ(item.x, row[i].x) << row[i].id;
        EXPECT_EQ(item.y, row[i].y) << row[i].id;
        EXPECT_EQ(item.width, row[i].width) << row[i].id;
        EXPECT_EQ(item.height, row[i].height) << row[i].id;
        EXPECT_EQ(item.text, row[i].text) << row[i].id;
        EXPECT_NE(item.style & WS_VISIBLE, 0u) << row[i].id;
        EXPECT_NE(item.style & WS_CHILD, 0u) << row[i].id;
    }
}

TEST(PanelTemplate, SpinsTakeTheEditBeforeThemAndListsAreUnsorted) {
    for (const stored_item& item : template_reader(202).read().items) {
        if (item.id == 213 || item.id == 216) {
            EXPECT_EQ(item.style & (UDS_AUTOBUDDY | UDS_ALIGNRIGHT), UDS_AUTOBUDDY | UDS_ALIGNRIGHT);
        }
        if (item.id == 206 || item.id == 220 || item.id == 222) {
            EXPECT_EQ(item.style & 3, static_cast<DWORD>(CBS_DROPDOWNLIST));
            EXPECT_EQ(item.style & CBS_SORT, 0u);
        }
        if (item.id == 209) {
            EXPECT_NE(item.style & ES_NUMBER, 0u);
        }
    }
}

TEST(BarTemplate, HoldsTheStripAndTheSetUpButtonHiddenAtFirst) {
    const stored_template bar = template_reader(201).read();
    EXPECT_EQ(bar.width, 316);
    EXPECT_EQ(bar.height, 180);
    EXPECT_EQ(bar.face, L"MS Shell Dlg");
    EXPECT_EQ(bar.point_size, 8);
    EXPECT_EQ(bar.style & (WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_POPUP), 0u);
    ASSERT_EQ(bar.items.size(), 2u);
    const stored_item& strip = bar.items[0];
    EXPECT_EQ(strip.id, 201u);
    EXPECT_EQ(_wcsicmp(strip.class_name.c_str(), L"SysTabControl32"), 0);
    EXPECT_EQ(strip.x, 37);
    EXPECT_EQ(strip.y, 39);
    EXPECT_EQ(strip.width, 179);
    EXPECT_EQ(strip.height, 98);
    EXPECT_EQ(strip.text, L"");
    EXPECT_EQ(strip.style & (WS_CHILD | WS_TABSTOP | WS_GROUP | WS_VISIBLE),
              static_cast<DWORD>(WS_CHILD | WS_TABSTOP | WS_GROUP));
    const stored_item& button = bar.items[1];
    EXPECT_EQ(button.id, 229u);
    EXPECT_EQ(_wcsicmp(button.class_name.c_str(), L"Button"), 0);
    EXPECT_EQ(button.x, 223);
    EXPECT_EQ(button.y, 28);
    EXPECT_EQ(button.width, 88);
    EXPECT_EQ(button.height, 14);
    EXPECT_EQ(button.text, L"設定經紀商");
    EXPECT_EQ(button.style & (WS_CHILD | WS_TABSTOP | WS_VISIBLE), static_cast<DWORD>(WS_CHILD | WS_TABSTOP));
}

}  // namespace
