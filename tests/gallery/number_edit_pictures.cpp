#include <windows.h>

#include "platform/win32/frame/window_text.h"
#include "tests/gallery/gallery.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/QuantityCalc.h"

namespace {

using namespace WTLControls::NumberEditors;

class quantity_host : public INumberEditorHost {
public:
    void OnFormatChange(int, eFormats) override {}
    void OnStringChanged(int, const _bstr_t&) override {}
    bool UsesDisplayText(int) override { return true; }
    CString GetDisplayText(double value) override {
        return local_format::CNumberFormat::QuantityToText(static_cast<LONG>(value));
    }

protected:
    ~quantity_host() = default;
};

template <class Editor>
class hosted final : public quantity_host {
public:
    Editor editor{this};
};

void prepare(CNumberEditCtrl& editor) {
    editor.SetParams(1.0, 1.0, 1000000000.0, EEditType::Integer);
}

void prepare(CQuantityCalc& quantity) {
    quantity.put_Images(211);
}

constexpr double shown_value = 1500.0;

template <class Editor>
gallery::shown show(gallery::stage& on, const std::string& state) {
    const HWND window = on.put(L"EDIT", L"", WS_BORDER | ES_AUTOHSCROLL, {104, 24});
    const auto made = std::make_shared<hosted<Editor>>();
    made->editor.SubclassWindow(window);
    prepare(made->editor);
    if (state != "empty") {
        made->editor.SetValue(shown_value);
    }
    if (state == "focused" || state == "invalid" || state == "balloon") {
        SetFocus(window);
    }
    if (state == "invalid" || state == "balloon") {
        made->editor.get_Editor().put_ShowErrors(true);
        SetWindowTextW(window, L"0");
    }
    if (state == "hot") {
        SendMessageW(GetWindow(window, GW_CHILD), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    }
    EnableWindow(window, state != "disabled");
    return {state == "balloon" ? made->editor.get_Balloon().get_Tip() : window, made, {}};
}

const gallery::entry number_edit{
    "number_edit",
    {{"normal"}, {"empty", false}, {"focused"}, {"invalid"}, {"balloon"}, {"disabled", false}},
    &show<CNaturalNumbersEditorCtrl>};
const gallery::entry quantity{
    "quantity",
    {{"normal"}, {"empty", false}, {"hot"}, {"focused"}, {"invalid"}, {"disabled", false}},
    &show<CQuantityCalc>};

}  // namespace
