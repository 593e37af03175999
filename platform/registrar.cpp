#include "platform/registrar.h"

#include <cwctype>
#include <stdexcept>
#include <vector>

namespace platform {
namespace {

struct script_error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct token {
    CString text;
    bool quoted = false;

    bool is(const wchar_t* word) const { return !quoted && text == word; }
};

struct script_value {
    CString name;
    CString text;
};

struct script_key {
    CString name;
    bool no_remove = false;
    bool force_remove = false;
    std::vector<script_value> values;
    std::vector<script_key> keys;
};

std::vector<token> split(const CString& script) {
    std::vector<token> tokens;
    for (std::size_t i = 0; i < script.size();) {
        if (std::iswspace(static_cast<std::wint_t>(script[i])) || script[i] == L'\0') {
            ++i;
        } else if (script[i] == L'\'') {
            const std::size_t end = script.find(L'\'', i + 1);
            if (end == CString::npos) {
                throw script_error("a quote is not closed");
            }
            tokens.push_back({script.substr(i + 1, end - i - 1), true});
            i = end + 1;
        } else if (script[i] == L'{' || script[i] == L'}' || script[i] == L'=') {
            tokens.push_back({CString(1, script[i]), false});
            ++i;
        } else {
            const std::size_t start = i;
            while (i < script.size() && !std::iswspace(static_cast<std::wint_t>(script[i])) &&
                   script[i] != L'=' && script[i] != L'\0') {
                ++i;
            }
            tokens.push_back({script.substr(start, i - start), false});
        }
    }
    return tokens;
}

class parser {
public:
    parser(const CString& script, const std::map<CString, CString>& replacements)
        : m_tokens(split(script)), m_replacements(replacements) {}

    std::vector<script_key> parse() {
        if (!next().is(L"HKCR")) {
            throw script_error("a script starts with its root");
        }
        script_key root;
        body(root);
        if (m_at != m_tokens.size()) {
            throw script_error("text after the end of the script");
        }
        return root.keys;
    }

private:
    const token& next() {
        if (m_at == m_tokens.size()) {
            throw script_error("the script ends too early");
        }
        return m_tokens[m_at++];
    }

    bool skip(const wchar_t* word) {
        if (m_at == m_tokens.size() || !m_tokens[m_at].is(word)) {
            return false;
        }
        ++m_at;
        return true;
    }

    // The body of a key, in braces.
    void body(script_key& key) {
        if (!skip(L"{")) {
            throw script_error("a body is missing");
        }
        while (!skip(L"}")) {
            if (skip(L"val")) {
                const CString name = expand(next().text);
                if (!skip(L"=")) {
                    throw script_error("a value without text");
                }
                key.values.push_back(value(name));
            } else {
                key.keys.push_back(this->key());
            }
        }
    }

    script_key key() {
        script_key result;
        result.no_remove = skip(L"NoRemove");
        result.force_remove = !result.no_remove && skip(L"ForceRemove");
        const token& name = next();
        if (name.is(L"{") || name.is(L"=")) {
            throw script_error("a key without a name");
        }
        result.name = expand(name.text);
        if (skip(L"=")) {
            result.values.push_back(value({}));
        }
        if (m_at < m_tokens.size() && m_tokens[m_at].is(L"{")) {
            body(result);
        }
        return result;
    }

    script_value value(const CString& name) {
        if (!next().is(L"s")) {
            throw script_error("an unknown type of value");
        }
        return {name, expand(next().text)};
    }

    CString expand(const CString& text) const {
        CString result;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] != L'%') {
                result += text[i];
                continue;
            }
            const std::size_t end = text.find(L'%', i + 1);
            if (end == CString::npos) {
                throw script_error("a replacement is not closed");
            }
            const CString name = text.substr(i + 1, end - i - 1);
            if (const auto found = m_replacements.find(name); found != m_replacements.end()) {
                result += found->second;
            } else {
                throw script_error("an unknown replacement");
            }
            i = end;
        }
        return result;
    }

    std::vector<token> m_tokens;
    const std::map<CString, CString>& m_replacements;
    std::size_t m_at = 0;
};

constexpr wchar_t ClassesOfUser[] = L"Software\\Classes";

void check(LONG result) {
    if (result != ERROR_SUCCESS) {
        _com_issue_error(HRESULT_FROM_WIN32(static_cast<DWORD>(result)));
    }
}

void check_delete(LONG result) {
    check(result == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : result);
}

void write(HKEY root, const CString& parent, const std::vector<script_key>& keys) {
    for (const script_key& key : keys) {
        const CString path = parent.empty() ? key.name : parent + L"\\" + key.name;
        if (key.force_remove) {
            check_delete(registry_key::DeleteTree(root, path));
        }
        registry_key handle;
        check(handle.Create(root, path));
        for (const script_value& value : key.values) {
            check(handle.SetString(value.name, value.text));
        }
        write(root, path, key.keys);
    }
}

bool has_subkeys(HKEY root, const CString& path, bool or_values) {
    registry_key handle;
    DWORD subkeys = 0;
    DWORD values = 0;
    if (handle.Open(root, path, KEY_READ) != ERROR_SUCCESS) {
        return false;
    }
    check(handle.QueryInfo(subkeys, values));
    return subkeys != 0 || (or_values && values != 0);
}

void erase(HKEY root, const CString& parent, const std::vector<script_key>& keys) {
    for (const script_key& key : keys) {
        const CString path = parent.empty() ? key.name : parent + L"\\" + key.name;
        if (!key.force_remove) {
            erase(root, path, key.keys);
            if (has_subkeys(root, path, key.no_remove)) {
                continue;
            }
        }
        check_delete(registry_key::DeleteTree(root, path));
    }
}

template <class Action>
HRESULT run(registrar::scope where, const CString& script, const std::map<CString, CString>& replacements,
            Action action) noexcept {
    try {
        const std::vector<script_key> keys = parser(script, replacements).parse();
        if (where == registrar::scope::user) {
            action(HKEY_CURRENT_USER, ClassesOfUser, keys);
        } else {
            action(HKEY_CLASSES_ROOT, CString(), keys);
        }
        return S_OK;
    } catch (const _com_error& error) {
        return error.Error();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception&) {
        return DISP_E_EXCEPTION;
    }
}

}  // namespace

HRESULT registrar::Register(const CString& script) const noexcept {
    return run(m_scope, script, m_replacements, write);
}

HRESULT registrar::Unregister(const CString& script) const noexcept {
    return run(m_scope, script, m_replacements, erase);
}

}  // namespace platform
