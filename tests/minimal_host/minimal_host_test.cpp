// The small host that a developer starts from: it runs, an order goes through it, and it ends.
#include <gmock/gmock.h>
#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>

namespace {

using ::testing::StartsWith;

constexpr int symbol = 203;
constexpr int order_type = 206;
constexpr int quantity = 209;
constexpr int account = 220;
constexpr int buy = 225;
constexpr int sell = 227;

std::string text_of(HWND window) {
    wchar_t text[256] = L"";
    SendMessageW(window, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text));
    return std::filesystem::path(text).string();
}

// The first window of a walk that fits, or null.
using test_of_window = std::function<bool(HWND)>;
struct search {
    const test_of_window& fits;
    HWND found;
};
BOOL CALLBACK look_at(HWND window, LPARAM parameter) {
    auto& looking = *reinterpret_cast<search*>(parameter);
    looking.found = looking.fits(window) ? window : nullptr;
    return looking.found == nullptr;
}
HWND find_top(const test_of_window& fits) {
    search looking{fits, nullptr};
    EnumWindows(look_at, reinterpret_cast<LPARAM>(&looking));
    return looking.found;
}
HWND find_below(HWND parent, const test_of_window& fits) {
    search looking{fits, nullptr};
    EnumChildWindows(parent, look_at, reinterpret_cast<LPARAM>(&looking));
    return looking.found;
}

// A running host. It is ended with the test, whatever came of it.
class minimal_host {
public:
    minimal_host() {
        const std::wstring program = std::filesystem::absolute("../bin/minimal_host.exe").wstring();
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        m_started = CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &startup, &m_process) != FALSE;
    }
    ~minimal_host() {
        if (m_started) {
            TerminateProcess(m_process.hProcess, 1);
            CloseHandle(m_process.hThread);
            CloseHandle(m_process.hProcess);
        }
    }
    minimal_host(const minimal_host&) = delete;
    minimal_host& operator=(const minimal_host&) = delete;

    bool started() const { return m_started; }

    // True when the condition came true while the host was running.
    bool wait_until(const std::function<bool()>& condition) const {
        while (!condition()) {
            if (WaitForSingleObject(m_process.hProcess, 20) == WAIT_OBJECT_0) {
                return condition();
            }
        }
        return true;
    }

    HWND window() const {
        return find_top([this](HWND one) {
            DWORD owner = 0;
            GetWindowThreadProcessId(one, &owner);
            return owner == m_process.dwProcessId && text_of(one) == "Minimal host" && IsWindowVisible(one);
        });
    }
    HWND control(int id) const {
        return find_below(window(),
                          [id](HWND one) { return GetDlgCtrlID(one) == id && IsWindowVisible(one); });
    }
    // The line that the host writes its orders into.
    std::string order() const {
        return text_of(find_below(window(), [this](HWND one) {
            wchar_t name[32] = L"";
            GetClassNameW(one, name, 32);
            return GetParent(one) == window() && std::wstring(name) == L"Static";
        }));
    }
    DWORD wait_for_end() const {
        WaitForSingleObject(m_process.hProcess, INFINITE);
        DWORD code = STILL_ACTIVE;
        GetExitCodeProcess(m_process.hProcess, &code);
        return code;
    }

private:
    PROCESS_INFORMATION m_process{};
    bool m_started = false;
};

void press(HWND button) {
    SendMessageW(button, BM_CLICK, 0, 0);
}

TEST(MinimalHost, ShowsTheBarWithItsSymbolAndTakesOrdersOfBothSides) {
    const minimal_host host;
    ASSERT_TRUE(host.started());
    ASSERT_TRUE(
        host.wait_until([&] { return host.control(buy) != nullptr && IsWindowEnabled(host.control(buy)); }));
    EXPECT_EQ(text_of(host.control(symbol)), "ESZ6");
    EXPECT_EQ(text_of(host.control(quantity)), "1");
    EXPECT_EQ(text_of(host.control(account)), "DEMO-1");
    EXPECT_EQ(host.order(), "No order yet");

    press(host.control(buy));
    EXPECT_EQ(host.order(), "Buy 1 ESZ6 market, stop 0.000000, limit 0.000000, DEMO-1");
    press(host.control(sell));
    EXPECT_THAT(host.order(), StartsWith("Sell 1 ESZ6 market, "));
}

TEST(MinimalHost, EndsWhenItIsClosed) {
    const minimal_host host;
    ASSERT_TRUE(host.started());
    ASSERT_TRUE(host.wait_until([&] { return host.control(order_type) != nullptr; }));
    PostMessageW(host.window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(host.wait_for_end(), 0u);
}

}  // namespace
