// What makes the library hard to misuse for whoever attacks the process that loads it.
#include <gmock/gmock.h>

#include "tests/module/component.h"

namespace {

using testing::Contains;
using testing::IsSubsetOf;

TEST(Hardening, TheImageMovesOverAllAddressesAndItsDataIsNotRun) {
    const test::component dll;
    constexpr WORD high_entropy = 0x20;
    constexpr WORD moves = 0x40;
    constexpr WORD data_is_not_run = 0x100;
    constexpr WORD all = high_entropy | moves | data_is_not_run;
    EXPECT_EQ(dll.dll_characteristics() & all, all);
}

// A library that is found by the loader's search can be put in its way; only the system's own are safe.
TEST(Hardening, IsLinkedToLibrariesOfTheSystemOnly) {
    const test::component dll;
    EXPECT_THAT(dll.imports(), Contains("kernel32.dll"));
    EXPECT_THAT(dll.imports(),
                IsSubsetOf({"advapi32.dll", "comctl32.dll", "gdi32.dll", "gdiplus.dll", "kernel32.dll",
                            "msimg32.dll", "msvcrt.dll", "ntdll.dll", "ole32.dll", "oleacc.dll",
                            "oleaut32.dll", "shell32.dll", "user32.dll", "uxtheme.dll", "version.dll"}));
}

}  // namespace
