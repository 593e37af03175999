#include "unicomp/Simples/interface/HotKeyText.h"

#include <array>
#include <map>

namespace Unicomp {
namespace {

// One key, or a row of keys from first to last. "%c" stands for the character with the key's code, "%d" for
// the key's code less the base.
struct key_row {
    DWORD first;
    DWORD last;
    const wchar_t* format;
    DWORD base;
};

constexpr std::array key_rows{
    key_row{33, 33, L"Page Up", 0},  key_row{34, 34, L"Page Down", 0}, key_row{35, 35, L"End", 0},
    key_row{36, 36, L"Home", 0},     key_row{37, 37, L"Left", 0},      key_row{38, 38, L"Up", 0},
    key_row{39, 39, L"Right", 0},    key_row{40, 40, L"Down", 0},      key_row{45, 45, L"Insert", 0},
    key_row{46, 46, L"Delete", 0},   key_row{48, 57, L"%c", 0},        key_row{65, 90, L"%c", 0},
    key_row{96, 105, L"Num %d", 96}, key_row{106, 106, L"Num *", 0},   key_row{107, 107, L"Num +", 0},
    key_row{109, 109, L"Num -", 0},  key_row{110, 110, L"Num Del", 0}, key_row{111, 111, L"Num /", 0},
    key_row{112, 123, L"F%d", 111},  key_row{186, 186, L";", 0},       key_row{187, 187, L"=", 0},
    key_row{188, 188, L",", 0},      key_row{189, 189, L"-", 0},       key_row{190, 190, L".", 0},
    key_row{191, 191, L"/", 0},      key_row{192, 192, L"`", 0},       key_row{219, 219, L"[", 0},
    key_row{220, 220, L"\\", 0},     key_row{221, 221, L"]", 0},       key_row{222, 222, L"'", 0},
};

CString text_of_key(const key_row& row, DWORD code) {
    CString text = row.format;
    if (const auto at = text.find(L"%c"); at != CString::npos) {
        text.replace(at, 2, 1, static_cast<wchar_t>(code));
    } else if (const auto number = text.find(L"%d"); number != CString::npos) {
        text.replace(number, 2, std::to_wstring(code - row.base));
    }
    return text;
}

// Built on first use.
const std::map<DWORD, CString>& key_texts() {
    static const auto texts = [] {
        std::map<DWORD, CString> made;
        for (const key_row& row : key_rows) {
            for (DWORD code = row.first; code <= row.last; ++code) {
                made.emplace(code, text_of_key(row, code));
            }
        }
        return made;
    }();
    return texts;
}

constexpr std::array<const wchar_t*, 8> prefixes{
    L"",       L"Shift + ",       L"Ctrl + ",       L"Ctrl + Shift + ",
    L"Alt + ", L"Shift + Alt + ", L"Ctrl + Alt + ", L"Ctrl + Shift + Alt + ",
};

constexpr DWORD code_of(DWORD hotkey) {
    return hotkey & 0xFFFF;
}

constexpr DWORD modifiers_of(DWORD hotkey) {
    return hotkey >> 16 & (hotkey_shift | hotkey_control | hotkey_alt);
}

constexpr bool is_between(DWORD code, DWORD first, DWORD last) {
    return code >= first && code <= last;
}

// Keys that stand both on the number pad and beside it, where only the latter may be hot keys. Deliberate:
// Delete (46) is not among them.
constexpr bool only_extended(DWORD code) {
    return is_between(code, 33, 40) || code == 45;
}

// Keys that type nothing, or that no field of the panel needs.
constexpr bool usable_alone(DWORD code) {
    return is_between(code, 33, 40) || code == 45 || code == 46 || code == 107 || code == 109 ||
           is_between(code, 112, 123);
}

}  // namespace

bool IsHotKeyValid(DWORD hotkey) {
    if (hotkey == 0) {
        return true;
    }
    const DWORD code = code_of(hotkey);
    const bool extended = (hotkey >> 16 & hotkey_extended) != 0;
    if (code == 0 || (!extended && only_extended(code))) {
        return false;
    }
    if (modifiers_of(hotkey) == 0 && !usable_alone(code)) {
        return false;
    }
    return key_texts().contains(code);
}

bool HotKeyToText(DWORD hotkey, CString& text) {
    text.clear();
    if (hotkey == 0) {
        return true;
    }
    if (!IsHotKeyValid(hotkey)) {
        return false;
    }
    text = prefixes[modifiers_of(hotkey)] + key_texts().at(code_of(hotkey));
    return true;
}

}  // namespace Unicomp
