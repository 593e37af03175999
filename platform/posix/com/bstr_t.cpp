#include <comdef.h>

#include <algorithm>
#include <atomic>
#include <cwchar>

namespace {

BSTR copy_of(BSTR text) {
    if (text == nullptr) {
        return nullptr;
    }
    const BSTR copy = SysAllocStringByteLen(reinterpret_cast<LPCSTR>(text), SysStringByteLen(text));
    if (copy == nullptr) {
        _com_issue_error(E_OUTOFMEMORY);
    }
    return copy;
}

BSTR make_text(const wchar_t* text) {
    const BSTR made = SysAllocString(text);
    if (made == nullptr && text != nullptr) {
        _com_issue_error(E_OUTOFMEMORY);
    }
    return made;
}

}  // namespace

// One text and the number of _bstr_t that share it.
struct _bstr_t::Data {
    explicit Data(BSTR owned) noexcept : text(owned) {}
    ~Data() { SysFreeString(text); }
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;

    // Takes the text over, also when there is no memory to hold it.
    static Data* adopt(BSTR owned) {
        try {
            return new Data(owned);
        } catch (...) {
            SysFreeString(owned);
            throw;
        }
    }

    BSTR text;
    std::atomic<ULONG> references{1};
};

_bstr_t::_bstr_t(Data* data) noexcept : m_data(data) {}

_bstr_t::_bstr_t(const _bstr_t& other) noexcept : m_data(other.m_data) {
    if (m_data != nullptr) {
        ++m_data->references;
    }
}

_bstr_t::_bstr_t(const wchar_t* text) : m_data(Data::adopt(make_text(text))) {}

_bstr_t::_bstr_t(BSTR text, bool fCopy) : m_data(Data::adopt(fCopy ? copy_of(text) : text)) {}

_bstr_t::~_bstr_t() {
    release();
}

_bstr_t& _bstr_t::operator=(const _bstr_t& other) noexcept {
    _bstr_t copy(other);
    std::swap(m_data, copy.m_data);
    return *this;
}

_bstr_t& _bstr_t::operator=(const wchar_t* text) {
    return *this = _bstr_t(text);
}

_bstr_t& _bstr_t::operator+=(const _bstr_t& other) {
    const UINT left = length();
    const BSTR joined = SysAllocStringLen(nullptr, left + other.length());
    if (joined == nullptr) {
        _com_issue_error(E_OUTOFMEMORY);
    }
    std::copy_n(copy(false), left, joined);
    std::copy_n(other.copy(false), other.length(), joined + left);
    return *this = _bstr_t(Data::adopt(joined));
}

_bstr_t _bstr_t::operator+(const _bstr_t& other) const {
    _bstr_t joined(*this);
    joined += other;
    return joined;
}

_bstr_t operator+(const wchar_t* left, const _bstr_t& right) {
    return _bstr_t(left) + right;
}

_bstr_t::operator const wchar_t*() const noexcept {
    return copy(false);
}

_bstr_t::operator wchar_t*() const noexcept {
    return copy(false);
}

bool _bstr_t::operator!() const noexcept {
    return copy(false) == nullptr;
}

bool _bstr_t::operator==(const _bstr_t& other) const noexcept {
    return compare(other) == 0;
}

bool _bstr_t::operator!=(const _bstr_t& other) const noexcept {
    return compare(other) != 0;
}

bool _bstr_t::operator<(const _bstr_t& other) const noexcept {
    return compare(other) < 0;
}

bool _bstr_t::operator>(const _bstr_t& other) const noexcept {
    return compare(other) > 0;
}

bool _bstr_t::operator<=(const _bstr_t& other) const noexcept {
    return compare(other) <= 0;
}

bool _bstr_t::operator>=(const _bstr_t& other) const noexcept {
    return compare(other) >= 0;
}

BSTR _bstr_t::copy(bool fCopy) const {
    const BSTR text = m_data == nullptr ? nullptr : m_data->text;
    return fCopy ? copy_of(text) : text;
}

unsigned int _bstr_t::length() const noexcept {
    return SysStringLen(copy(false));
}

void _bstr_t::Assign(BSTR text) {
    *this = _bstr_t(text, true);
}

BSTR& _bstr_t::GetBSTR() {
    if (m_data == nullptr) {
        m_data = new Data(nullptr);
    }
    return m_data->text;
}

BSTR* _bstr_t::GetAddress() {
    Attach(nullptr);
    return &m_data->text;
}

void _bstr_t::Attach(BSTR text) {
    *this = _bstr_t(text, false);
}

BSTR _bstr_t::Detach() {
    if (m_data == nullptr || m_data->references != 1) {
        _com_issue_error(E_POINTER);
    }
    const BSTR text = m_data->text;
    m_data->text = nullptr;
    release();
    return text;
}

void _bstr_t::release() noexcept {
    if (m_data != nullptr && --m_data->references == 0) {
        delete m_data;
    }
    m_data = nullptr;
}

int _bstr_t::compare(const _bstr_t& other) const noexcept {
    const BSTR left = copy(false);
    const BSTR right = other.copy(false);
    if (left == nullptr || right == nullptr) {
        return (left != nullptr) - (right != nullptr);
    }
    const int order = std::wmemcmp(left, right, std::min(length(), other.length()));
    if (order != 0) {
        return order;
    }
    return (length() > other.length()) - (length() < other.length());
}
