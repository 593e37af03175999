// What every fake of the host writes down, and how a test makes its calls fail.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace test {

// UTF-8.
std::string narrow(const CString& text);
// In quotation marks; "null" without them for a null text.
std::string quoted(BSTR text);
std::string quoted(const CString& text);
// The shortest text that reads back as the value, the same on both systems.
std::string number_text(double value);

struct logged_call {
    // `Profile("Alpha").Connect()`
    std::string text;
    DWORD thread = 0;
};

// The record and the faults of one test's host. Copies share both. Any thread.
//
// An operation is told by its kind, "Profile.get_Name", or for one object, `Profile("Alpha").get_Name`.
class fake_host {
public:
    fake_host();

    // Calls so far, in order.
    std::vector<std::string> calls() const;
    std::vector<logged_call> entries() const;
    // The same, and forgets them.
    std::vector<std::string> take();
    // How many calls contain a text.
    int count(std::string_view part) const;
    void clear();
    // Adds a line that no fake wrote, such as what a test's own object saw.
    void note(std::string text);

    // The nth call from now gives hr, nth 0: each one. Its out-values stay unwritten unless hr is a
    // success.
    void fail(const std::string& operation, HRESULT hr, int nth = 0);
    // Like fail, but the out-values are written all the same.
    void fail_and_write(const std::string& operation, HRESULT hr, int nth = 0);
    // Calls succeed and write nothing.
    void leave_unwritten(const std::string& operation);
    // Runs inside each call, after it was recorded. What it throws goes to the fake's caller; that must be
    // our own code and not the system's.
    void on_call(const std::string& operation, std::function<void()> action);
    void forget_faults();
    // Runs inside every call, with the kind's name of the operation and the object's. One at a time; null
    // for none. As on_call otherwise.
    using watcher = std::function<void(const std::string& general, const std::string& particular)>;
    void watch(watcher sees);

    // For the fakes.
    struct outcome {
        HRESULT hr = S_OK;
        bool write = true;
    };
    // Records `kind("name").operation(arguments)`, without the brackets for an empty name.
    outcome enter(const std::string& kind, const CString& name, const std::string& operation,
                  const std::string& arguments = {}) const;

private:
    struct state;
    void add_fault(const std::string& operation, HRESULT hr, int nth, bool write);

    std::shared_ptr<state> m_state;
};

// An apartment for the calling thread as long as it lives.
class com_apartment {
public:
    com_apartment() { m_result = CoInitialize(nullptr); }
    ~com_apartment() {
        if (SUCCEEDED(m_result)) {
            CoUninitialize();
        }
    }
    com_apartment(const com_apartment&) = delete;
    com_apartment& operator=(const com_apartment&) = delete;

private:
    HRESULT m_result;
};

}  // namespace test
