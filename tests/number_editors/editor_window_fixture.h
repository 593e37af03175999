// Real number editors in a real window that reflects their notices.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "tests/number_editors/fake_editor.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/QuantityCalc.h"

namespace number_editors_tests {

// One for all tests: without a window manager Wine waits for two seconds at the end of each.
HWND reflecting_window();
void pump();
// Serves messages until the condition holds; false after a generous time without it.
bool pump_until(const std::function<bool()>& condition);
CString text_of(HWND window);
RECT place_in_parent(HWND window);

// What a host of a quantity does, with texts like "1.5K".
class quantity_owner final : public editors::INumberEditorHost {
public:
    std::vector<CString> calls;
    void OnFormatChange(int, editors::eFormats) override {}
    void OnStringChanged(int, const _bstr_t& text) override {
        calls.push_back(L"text " + platform::text_of(text));
    }
    void OnValueChanged(int, double value) override {
        calls.push_back(L"value " + editors::plain_number_text(value));
    }
    bool UsesDisplayText(int) override { return true; }
    CString GetDisplayText(double value) override;
};

template <class Editor>
class editor_window_test : public testing::Test {
protected:
    explicit editor_window_test(DWORD style = 0) {
        parent = reflecting_window();
        window = make(style, 10);
        other = make(0, 200);
        editor.emplace(&host);
        editor->SubclassWindow(window);
        SetActiveWindow(parent);
        SetFocus(other);
        host.calls.clear();
    }
    ~editor_window_test() override {
        DestroyWindow(window);
        DestroyWindow(other);
        SetFocus(parent);
        pump();
    }

    HWND make(DWORD style, int x) const {
        return CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | style, x, 10, 120,
                               22, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(209 + x)), nullptr,
                               nullptr);
    }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window, message, wParam, lParam);
    }
    CString text() const { return text_of(window); }
    std::pair<DWORD, DWORD> selection() const {
        DWORD from = 99;
        DWORD to = 99;
        send(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        return {from, to};
    }
    void type(const CString& keys) const {
        for (const wchar_t key : keys) {
            send(WM_CHAR, key, 1);
        }
    }
    std::vector<std::wstring> asserted() const {
        std::vector<std::wstring> result;
        for (const reported_assertion& each : reports.assertions()) {
            result.push_back(each.description);
        }
        return result;
    }

    number_locale_scope locale{english()};
    diagnostics_recorder reports;
    quantity_owner host;
    HWND parent = nullptr;
    HWND window = nullptr;
    HWND other = nullptr;
    std::optional<Editor> editor;
};

}  // namespace number_editors_tests
