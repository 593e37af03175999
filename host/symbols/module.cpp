#include "symbols/module.h"

#include <array>
#include <filesystem>

#include "com/text.h"
#include "market/symbol_file.h"

// The linker's own name for the start of the image.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace host {

HINSTANCE symbols_module() {
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

const symbol_store& module_symbols() {
    static const symbol_store store = [] {
        std::array<wchar_t, 1024> module{};
        GetModuleFileNameW(symbols_module(), module.data(), static_cast<DWORD>(module.size()));
        const auto file = std::filesystem::path(module.data()).replace_filename(L"symbols.txt");
        // The application reads the same file and tells its user what is wrong with it.
        return symbol_store(read_symbol_file(to_utf8(file.wstring())).instruments);
    }();
    return store;
}

}  // namespace host
