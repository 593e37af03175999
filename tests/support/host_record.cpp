#include "tests/support/host_record.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <mutex>
#include <utility>

namespace test {

namespace {

void append_utf8(std::string& out, char32_t c) {
    const auto put = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

struct fault {
    std::string operation;
    HRESULT hr;
    // 0: each call; else the number of calls until it strikes once.
    int countdown;
    bool write;
    bool spent;
};

}  // namespace

std::string narrow(const CString& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto c = static_cast<char32_t>(text[i]);
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size()) {
            c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        }
        append_utf8(out, c);
    }
    return out;
}

std::string quoted(const CString& text) {
    std::string result(1, '"');
    result += narrow(text);
    result += '"';
    return result;
}

std::string quoted(BSTR text) {
    return text != nullptr ? quoted(platform::text_of(text)) : "null";
}

std::string number_text(double value) {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return {buffer.data(), end};
}

struct fake_host::state {
    mutable std::mutex mutex;
    std::vector<logged_call> calls;
    std::vector<fault> faults;
    std::vector<std::string> unwritten;
    std::vector<std::pair<std::string, std::function<void()>>> actions;
    watcher sees;

    void strike(const std::string& operation, outcome& result) {
        for (fault& f : faults) {
            if (f.operation != operation || f.spent) {
                continue;
            }
            if (f.countdown > 0) {
                if (--f.countdown > 0) {
                    continue;
                }
                f.spent = true;
            }
            result.hr = f.hr;
            result.write = f.write || SUCCEEDED(f.hr);
        }
        if (std::find(unwritten.begin(), unwritten.end(), operation) != unwritten.end()) {
            result.write = false;
        }
    }
};

fake_host::fake_host() : m_state(std::make_shared<state>()) {}

std::vector<logged_call> fake_host::entries() const {
    const std::lock_guard guard(m_state->mutex);
    return m_state->calls;
}

std::vector<std::string> fake_host::calls() const {
    std::vector<std::string> texts;
    for (logged_call& call : entries()) {
        texts.push_back(std::move(call.text));
    }
    return texts;
}

std::vector<std::string> fake_host::take() {
    std::vector<std::string> texts = calls();
    clear();
    return texts;
}

int fake_host::count(std::string_view part) const {
    int found = 0;
    for (const std::string& text : calls()) {
        found += text.find(part) != std::string::npos ? 1 : 0;
    }
    return found;
}

void fake_host::clear() {
    const std::lock_guard guard(m_state->mutex);
    m_state->calls.clear();
}

void fake_host::note(std::string text) {
    const std::lock_guard guard(m_state->mutex);
    m_state->calls.push_back({std::move(text), GetCurrentThreadId()});
}

void fake_host::add_fault(const std::string& operation, HRESULT hr, int nth, bool write) {
    const std::lock_guard guard(m_state->mutex);
    m_state->faults.push_back({operation, hr, nth, write, false});
}

void fake_host::fail(const std::string& operation, HRESULT hr, int nth) {
    add_fault(operation, hr, nth, false);
}

void fake_host::fail_and_write(const std::string& operation, HRESULT hr, int nth) {
    add_fault(operation, hr, nth, true);
}

void fake_host::leave_unwritten(const std::string& operation) {
    const std::lock_guard guard(m_state->mutex);
    m_state->unwritten.push_back(operation);
}

void fake_host::on_call(const std::string& operation, std::function<void()> action) {
    const std::lock_guard guard(m_state->mutex);
    m_state->actions.emplace_back(operation, std::move(action));
}

void fake_host::watch(watcher sees) {
    const std::lock_guard guard(m_state->mutex);
    m_state->sees = std::move(sees);
}

void fake_host::forget_faults() {
    const std::lock_guard guard(m_state->mutex);
    m_state->faults.clear();
    m_state->unwritten.clear();
    m_state->actions.clear();
}

fake_host::outcome fake_host::enter(const std::string& kind, const CString& name,
                                    const std::string& operation, const std::string& arguments) const {
    const std::string object = name.empty() ? kind : kind + "(\"" + narrow(name) + "\")";
    const std::string general = kind + "." + operation;
    const std::string particular = object + "." + operation;
    outcome result;
    std::vector<std::function<void()>> actions;
    watcher sees;
    {
        const std::lock_guard guard(m_state->mutex);
        m_state->calls.push_back({particular + "(" + arguments + ")", GetCurrentThreadId()});
        m_state->strike(general, result);
        if (particular != general) {
            m_state->strike(particular, result);
        }
        sees = m_state->sees;
        for (const auto& [told, action] : m_state->actions) {
            if (told == general || told == particular) {
                actions.push_back(action);
            }
        }
    }
    for (const auto& action : actions) {
        action();
    }
    if (sees) {
        sees(general, particular);
    }
    return result;
}

}  // namespace test
