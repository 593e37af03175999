// A name that is looked up in a table of a million rows, beside a bare walk over the same table that reads
// what the rule needs of each row and looks at none of it. The host's share, a text for each row, is in both.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cwchar>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "benchmarks/stopwatch.h"
#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/lookup/ProcessSymbols.h"
#include "platform/class_factory.h"
#include "platform/com_create.h"

namespace {

long allocations = 0;

constexpr int Rows = 1'000'000;
constexpr int Turns = 25;
constexpr LONG FeedId = 7;
constexpr wchar_t Feed[] = L"Feed";
constexpr wchar_t Wanted[] = L"last of all";

// Names of the length of real ones.
std::vector<std::wstring> make_names() {
    std::vector<std::wstring> names;
    names.reserve(Rows);
    for (int row = 1; row < Rows; ++row) {
        names.push_back(L"SYM" + std::to_wstring(row));
    }
    names.emplace_back(Wanted);
    return names;
}

const std::vector<std::wstring>& the_names() {
    static const std::vector<std::wstring> names = make_names();
    return names;
}

// The rows with one field object for each kind of value, which follows the current row.
class big_table : public platform::com_root<IovTable, IovField> {
public:
    STDMETHODIMP get_Field(tagOVFIELDID id, IovField** ppVal) override {
        m_column = id;
        AddRef();
        *ppVal = this;
        return S_OK;
    }
    STDMETHODIMP MoveFirst() override {
        m_row = 0;
        return S_OK;
    }
    STDMETHODIMP MoveNext() override {
        ++m_row;
        return S_OK;
    }
    STDMETHODIMP get_EndOfTable(VARIANT_BOOL* pVal) override {
        *pVal = m_row >= m_rows ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }
    STDMETHODIMP get_AsLong(LONG* pVal) override {
        *pVal = FeedId;
        return S_OK;
    }
    STDMETHODIMP get_AsDouble(double* pVal) override {
        *pVal = 1.0;
        return S_OK;
    }
    STDMETHODIMP get_AsString(BSTR* pVal) override {
        const std::wstring& name = the_names()[m_row];
        *pVal = m_column == eOVF_Name ? SysAllocStringLen(name.data(), static_cast<UINT>(name.size()))
                                      : SysAllocString(Feed);
        return S_OK;
    }
    RESERVED_OPERATIONS_IovTable

        void
        fill(std::size_t rows) {
        m_rows = rows;
    }

private:
    std::size_t m_rows = 0;
    std::size_t m_row = 0;
    tagOVFIELDID m_column = eOVF_Id;
};

class all_symbols : public platform::com_root<ISymbolRequest> {
public:
    STDMETHODIMP put_Symbol(LONG, LONG) override { return S_OK; }
    RESERVED_OPERATIONS_ISymbolRequest
};

class query : public platform::com_root<ISymbolQuery> {
public:
    STDMETHODIMP QuerySymbols(LONG, ISymbolRequest*, IovTable* pTable) override {
        static_cast<big_table*>(pTable)->fill(Rows);
        return S_OK;
    }
    STDMETHODIMP QuerySecondTable(LONG, LONG, IovTable*) override { return S_OK; }
    STDMETHODIMP get_DataFeedId(BSTR, LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_ExchangeId(BSTR, LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP get_SymbolId(LONG, BSTR, LONG, LONG, LONG, LONG, LONG, LONG*) override { return E_NOTIMPL; }
    RESERVED_OPERATIONS_ISymbolQuery
};

template <class Class>
void serve(const CLSID& clsid) {
    DWORD cookie = 0;
    const auto factory = platform::make_com<platform::class_factory<Class>>();
    _com_util::CheckError(
        CoRegisterClassObject(clsid, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
}

void look_up() {
    OV_OrderDeck::symbol_info_holder info;
    OV_OrderDeck::unique_by_name_finder finder(Wanted, Feed, info);
    OV_OrderDeck::_process_symbols(std::ref(finder), false);
    if (finder.count() != 1) {
        std::abort();
    }
}

// Over a table that is made by its class, as the lookup's is: the compiler sees through neither.
void walk() {
    com_ptr<IovTable> table;
    _com_util::CheckError(platform::create_running(CLSID_IovTable, table));
    IovTable& rows = *table;
    static_cast<big_table&>(rows).fill(Rows);
    VARIANT_BOOL end = VARIANT_FALSE;
    rows.MoveFirst();
    rows.get_EndOfTable(&end);
    while (end == VARIANT_FALSE) {
        IovField* field = nullptr;
        LONG feed = 0;
        rows.get_Field(eOVF_DataFeedId, &field);
        field->get_AsLong(&feed);
        field->Release();
        BSTR name = nullptr;
        rows.get_Field(eOVF_Name, &field);
        field->get_AsString(&name);
        field->Release();
        SysFreeString(name);
        rows.MoveNext();
        rows.get_EndOfTable(&end);
    }
}

template <class Action>
double nanoseconds_of_a_row(Action action) {
    using clock = std::chrono::steady_clock;
    const clock::time_point start = clock::now();
    action();
    return std::chrono::duration<double, std::nano>(clock::now() - start).count() / Rows;
}

template <class Action>
long allocations_of(Action action) {
    const long before = allocations;
    action();
    return allocations - before;
}

}  // namespace

// Counts what the component and its standard library allocate. The texts are the system's.
void* operator new(std::size_t bytes) {
    ++allocations;
    if (void* const memory = std::malloc(bytes)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

int main() {
    CoInitialize(nullptr);
    serve<query>(CLSID_SymbolQuery);
    serve<big_table>(CLSID_IovTable);
    serve<all_symbols>(CLSID_SymbolRequest);
    the_names();
    // In turn, and the least of each: what else the machine does falls on both alike.
    double bare = nanoseconds_of_a_row(&walk);
    double lookup = nanoseconds_of_a_row(&look_up);
    for (int turn = 1; turn < Turns; ++turn) {
        bare = std::min(bare, nanoseconds_of_a_row(&walk));
        lookup = std::min(lookup, nanoseconds_of_a_row(&look_up));
    }
    benchmarks::print_head("one of 1,000,000 rows", "of the bare walk");
    benchmarks::print_line("bare walk", bare, bare);
    benchmarks::print_line("lookup by name", lookup, bare);
    std::printf("  allocations for all rows: bare walk %ld, lookup %ld\n", allocations_of(&walk),
                allocations_of(&look_up));
    CoUninitialize();
    return 0;
}
