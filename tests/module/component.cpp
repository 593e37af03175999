#include "tests/module/component.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace test {

component::component() : m_handle(LoadLibraryW(path().c_str())) {
    if (m_handle == nullptr) {
        throw std::runtime_error("OrderDeck.dll can't be loaded");
    }
}

component::~component() {
    FreeLibrary(m_handle);
}

// The test programs and the component are built side by side.
std::wstring component::path() {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring folder(program);
    folder.resize(folder.find_last_of(L'\\'));
    folder.resize(folder.find_last_of(L'\\'));
    return folder + L"\\bin\\OrderDeck.dll";
}

const IMAGE_OPTIONAL_HEADER& component::header() const {
    const auto* const base = reinterpret_cast<const BYTE*>(m_handle);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    return reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew)->OptionalHeader;
}

std::vector<std::string> component::imports() const {
    const auto* const base = reinterpret_cast<const BYTE*>(m_handle);
    const auto& entry = header().DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + entry.VirtualAddress);
    std::vector<std::string> names;
    for (; library->Name != 0; ++library) {
        std::string name = reinterpret_cast<const char*>(base + library->Name);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
        names.push_back(name);
    }
    return names;
}

WORD component::dll_characteristics() const {
    return header().DllCharacteristics;
}

std::vector<std::string> component::exports() const {
    const auto* const base = reinterpret_cast<const BYTE*>(m_handle);
    const auto& entry = header().DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* const table = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + entry.VirtualAddress);
    const auto* const names = reinterpret_cast<const DWORD*>(base + table->AddressOfNames);
    std::vector<std::string> result;
    for (DWORD i = 0; i < table->NumberOfNames; ++i) {
        result.emplace_back(reinterpret_cast<const char*>(base + names[i]));
    }
    return result;
}

template <class Function>
Function* component::find(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_handle, name)));
}

HRESULT component::get_class_object(REFCLSID clsid, REFIID iid, void** out) const {
    return find<decltype(DllGetClassObject)>("DllGetClassObject")(clsid, iid, out);
}

com_ptr<IClassFactory> component::factory(REFCLSID clsid) const {
    com_ptr<IClassFactory> result;
    get_class_object(clsid, __uuidof(IClassFactory), static_cast<void**>(platform::receive(result)));
    return result;
}

HRESULT component::can_unload_now() const {
    return find<decltype(DllCanUnloadNow)>("DllCanUnloadNow")();
}

HRESULT component::register_server() const {
    return find<HRESULT STDAPICALLTYPE()>("DllRegisterServer")();
}

HRESULT component::unregister_server() const {
    return find<HRESULT STDAPICALLTYPE()>("DllUnregisterServer")();
}

}  // namespace test
