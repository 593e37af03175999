// Dialogs as on a screen of another resolution. Windows only.
#pragma once

#include <cstring>
#include <vector>

#include "tests/support/win32/told_import.h"

namespace test {

// While it lives, the dialogs that this program makes from its templates are laid out for so many dots to the
// inch: their font has the height that it would have there, and a dialog grows with its font. What the system
// itself draws keeps its size.
class dialog_resolution {
public:
    explicit dialog_resolution(int dpi)
        : m_told([dpi](auto... arguments) { return make(dpi, arguments...); }) {}

private:
    using make_call = told_import<"CreateDialogParamW", decltype(CreateDialogParamW)>;

    // Of the font's points in a template of the extended form without menu, class and title.
    static constexpr std::size_t points_at = 32;

    static HWND make(int dpi, HINSTANCE module, LPCWSTR name, HWND parent, DLGPROC procedure, LPARAM data) {
        const HRSRC found = FindResourceW(module, name, MAKEINTRESOURCEW(5));
        const void* const stored = LockResource(LoadResource(module, found));
        const std::size_t size = SizeofResource(module, found);
        std::vector<DWORD> copy(size / sizeof(DWORD) + 1);
        std::memcpy(copy.data(), stored, size);
        auto* const points = reinterpret_cast<BYTE*>(copy.data()) + points_at;
        WORD height = 0;
        std::memcpy(&height, points, sizeof(height));
        EXPECT_EQ(height, 8) << "the template is of another form";
        height = static_cast<WORD>(MulDiv(height, dpi, USER_DEFAULT_SCREEN_DPI));
        std::memcpy(points, &height, sizeof(height));
        return CreateDialogIndirectParamW(module, reinterpret_cast<LPCDLGTEMPLATEW>(copy.data()), parent,
                                          procedure, data);
    }

    make_call m_told;
};

}  // namespace test
