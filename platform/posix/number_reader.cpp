#include "platform/posix/number_reader.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>

#include "platform/number_text.h"

namespace platform {
namespace {

constexpr wchar_t no_break_space = 0xA0;
constexpr wchar_t narrow_no_break_space = 0x202F;

// strtod by rules that no locale of the process changes.
double to_double(const std::string& text) {
    static const locale_t plain = newlocale(LC_NUMERIC_MASK, "C", nullptr);
    return strtod_l(text.c_str(), nullptr, plain);
}

class number_reader {
public:
    number_reader(const CString& text, const number_conventions& conventions)
        : m_text(text), m_conventions(conventions) {}

    std::optional<double> read() {
        if (!leading() || !mantissa() || !exponent() || !trailing()) {
            return std::nullopt;
        }
        const double value = to_double(m_plain);
        if (!std::isfinite(value)) {
            return std::nullopt;
        }
        return m_negative ? -value : value;
    }

private:
    bool at_end() const { return m_at == m_text.size(); }
    bool at(wchar_t character) const { return !at_end() && m_text[m_at] == character; }
    bool at_digit() const { return !at_end() && is_digit(m_text[m_at]); }

    bool take(wchar_t character) {
        if (!at(character)) {
            return false;
        }
        ++m_at;
        return true;
    }

    bool take(const CString& part) {
        if (part.empty() || m_text.compare(m_at, part.size(), part) != 0) {
            return false;
        }
        m_at += part.size();
        return true;
    }

    void skip_white_space() {
        while (!at_end() && is_white_space(m_text[m_at])) {
            ++m_at;
        }
    }

    bool leading() {
        skip_white_space();
        if (take(L'(')) {
            m_parenthesis = true;
            m_negative = true;
        } else if (take(L'-')) {
            m_signed = true;
            m_negative = true;
        } else if (take(L'+')) {
            m_signed = true;
        }
        skip_white_space();
        return true;
    }

    std::size_t digits() {
        const std::size_t first = m_at;
        while (at_digit()) {
            m_plain += static_cast<char>(m_text[m_at++]);
        }
        return m_at - first;
    }

    // Nobody types a no-break space, so where one parts the groups any blank between digits will do.
    bool take_group_blank() {
        const CString& group = m_conventions.group_separator;
        const bool blank_group =
            group.size() == 1 && (group[0] == no_break_space || group[0] == narrow_no_break_space);
        const bool between = m_at + 1 < m_text.size() && is_digit(m_text[m_at + 1]);
        return blank_group && between && (take(L' ') || take(no_break_space) || take(narrow_no_break_space));
    }

    bool mantissa() {
        std::size_t count = digits();
        if (count > 0) {
            while (take(m_conventions.group_separator) || take_group_blank()) {
                count += digits();
            }
        }
        if (take(m_conventions.decimal_separator)) {
            m_plain += '.';
            count += digits();
        }
        return count > 0;
    }

    bool exponent() {
        if (!take(L'e') && !take(L'E')) {
            return true;
        }
        m_plain += 'e';
        if (take(L'-')) {
            m_plain += '-';
        } else {
            take(L'+');
        }
        return digits() > 0;
    }

    bool trailing() {
        skip_white_space();
        if (m_parenthesis) {
            if (!take(L')')) {
                return false;
            }
        } else if (!m_signed && take(L'-')) {
            m_negative = true;
        } else if (!m_signed) {
            take(L'+');
        }
        skip_white_space();
        return at_end();
    }

    const CString& m_text;
    const number_conventions& m_conventions;
    std::string m_plain;
    std::size_t m_at = 0;
    bool m_signed = false;
    bool m_parenthesis = false;
    bool m_negative = false;
};

}  // namespace

std::optional<double> read_number(const CString& text, const number_conventions& conventions) {
    return number_reader(text, conventions).read();
}

}  // namespace platform
