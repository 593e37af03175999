// An editor's logic over an edit of plain memory.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/diagnostics_recorder.h"
#include "tests/support/number_locale_scope.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditor.h"

namespace number_editors_tests {

namespace editors = WTLControls::NumberEditors;

class fake_editor_window final : public editors::IEditorWindow {
public:
    bool exists = true;
    bool visible = true;
    CString text;
    LONG from = 0;
    LONG to = 0;
    // What was asked for, in order.
    std::vector<CString> calls;
    // As an edit tells its owner of a change.
    std::function<void()> on_update;

    bool Exists() const override { return exists; }
    bool IsVisible() const override { return visible; }
    LONG get_ControlId() const override { return 209; }
    CString get_Text() const override { return text; }
    void put_Text(const CString& next) override {
        calls.push_back(L"text " + next);
        enter(next);
    }
    void get_Selection(LONG& first, LONG& last) const override {
        first = from;
        last = to;
    }
    void put_Selection(LONG first, LONG last) override {
        from = first;
        to = last;
    }
    void MoveCaretToEnd() override { put_Selection(size(), size()); }
    void StartCaretTimer() override { calls.push_back(L"caret timer"); }
    void TakeFocus() override { calls.push_back(L"focus"); }
    void Beep(UINT icon) override { calls.push_back(L"beep " + std::to_wstring(icon)); }
    void ShowBox(const CString& title, const CString& message, UINT icon) override {
        calls.push_back(L"box " + title + L"|" + message + L"|" + std::to_wstring(icon));
    }
    void ShowBalloon(const CString& title, const CString& message, UINT icon) override {
        calls.push_back(L"balloon " + title + L"|" + message + L"|" + std::to_wstring(icon));
    }
    void HideBalloon() override { calls.push_back(L"hide balloon"); }

    // A new text puts the caret at the start, as an edit does.
    void enter(const CString& next) {
        text = next;
        from = to = 0;
        if (on_update) {
            on_update();
        }
    }

private:
    LONG size() const { return static_cast<LONG>(text.size()); }
};

class recording_host final : public editors::INumberEditorHost {
public:
    std::vector<CString> calls;
    bool display = true;
    HRESULT fails = S_OK;

    void OnFormatChange(int, editors::eFormats) override { calls.push_back(L"format"); }
    void OnStringChanged(int id, const _bstr_t& text) override {
        calls.push_back(std::to_wstring(id) + L" text " + platform::text_of(text));
        if (FAILED(fails)) {
            _com_issue_error(fails);
        }
    }
    void OnValueChanged(int id, double value) override {
        calls.push_back(std::to_wstring(id) + L" value " + editors::plain_number_text(value));
    }
    bool UsesDisplayText(int) override { return display; }
    CString GetDisplayText(double value) override { return L"<" + editors::plain_number_text(value) + L">"; }
};

// A host that leaves everything as it comes.
class plain_host final : public editors::INumberEditorHost {
public:
    void OnFormatChange(int, editors::eFormats) override {}
    void OnStringChanged(int, const _bstr_t&) override {}
};

inline std::optional<CString> no_text(UINT) {
    return {};
}

class editor_test : public testing::Test {
protected:
    editor_test() {
        window.on_update = [this] { editor.OnUpdate(); };
        editor.put_Id(7);
    }

    // As a quantity has it.
    void be_quantity() { editor.SetParams(1.0, 1.0, 1000000000.0, editors::EEditType::Integer); }
    void forget() {
        window.calls.clear();
        host.calls.clear();
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
    fake_editor_window window;
    recording_host host;
    editors::CNumberEditor editor{window, &host, &no_text};
};

using calls = std::vector<CString>;

}  // namespace number_editors_tests
