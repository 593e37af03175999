// A trading centre with no window: time passes when the test says so.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "centre/profiles.h"
#include "com/array.h"
#include "com/text.h"

namespace host {

class hand_scheduler final : public scheduler {
public:
    void after(unsigned milliseconds, std::function<void()> work) override {
        m_waiting.emplace_back(milliseconds, std::move(work));
    }

    // The delays of what waits.
    std::vector<unsigned> delays() const {
        std::vector<unsigned> all;
        for (const auto& [delay, work] : m_waiting) {
            all.push_back(delay);
        }
        return all;
    }

    // Runs what waits now, not what it adds.
    void run() {
        for (auto& [delay, work] : std::exchange(m_waiting, {})) {
            work();
        }
    }

private:
    std::vector<std::pair<unsigned, std::function<void()>>> m_waiting;
};

// Keeps the events of one profile.
class recorder : public object<ITC_TradingProfileDataChange> {
public:
    STDMETHODIMP OnQuote(double bid, double ask) noexcept override {
        quotes.emplace_back(bid, ask);
        return S_OK;
    }
    STDMETHODIMP OnConnectionState(ETM_ConnectionChanged state) noexcept override {
        states.push_back(state);
        return S_OK;
    }
    STDMETHODIMP OnTradingAllowed(VARIANT_BOOL) noexcept override { return S_OK; }
    STDMETHODIMP OnStatusText(BSTR) noexcept override { return S_OK; }

    std::vector<std::pair<double, double>> quotes;
    std::vector<int> states;
};

// A BSTR of a test, freed at the end of the statement.
class bstr {
public:
    explicit bstr(std::string_view text) : m_text(to_bstr(text)) {}
    ~bstr() { SysFreeString(m_text); }
    bstr(const bstr&) = delete;
    bstr& operator=(const bstr&) = delete;
    operator BSTR() const { return m_text; }

private:
    BSTR m_text;
};

// Takes a text that an operation gave.
inline std::string take(BSTR text) {
    std::string copy = bstr_text(text);
    SysFreeString(text);
    return copy;
}

struct paper_world {
    paper_world() {
        settings.frozen_quotes = true;
        paper = std::make_unique<desk>(settings, [this] { return now; });
        paper->on_event = [this](const std::string& text) { events.push_back(text); };
        all = make<profiles>(*paper, later, [this](HWND owner, profile_record& record) {
            shown.emplace_back(owner, record);
            return edit(record);
        });
    }

    profile& instant() { return *all->items()[0]; }
    profile& remote() { return *all->items()[1]; }

    double now = 46346.5;
    options settings;
    hand_scheduler later;
    std::vector<std::string> events;
    std::vector<std::pair<HWND, profile_record>> shown;
    // What the user does in the settings; true is OK.
    std::function<bool(profile_record&)> edit = [](profile_record&) { return false; };
    std::unique_ptr<desk> paper;
    ref<profiles> all;
};

}  // namespace host
