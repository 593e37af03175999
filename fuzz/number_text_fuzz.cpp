// Typed quantities: any keys in an editor, and what it then holds, shows and tells.
#include <algorithm>
#include <cmath>

#include "fuzz/input.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditor.h"

namespace {

using namespace WTLControls::NumberEditors;
using fuzz::require;

constexpr double least = 1.0;
constexpr double most = 1000000000.0;

// An edit without a window.
class plain_edit final : public IEditorWindow {
public:
    bool Exists() const override { return true; }
    bool IsVisible() const override { return true; }
    LONG get_ControlId() const override { return 209; }
    CString get_Text() const override { return text; }
    void put_Text(const CString& shown) override { text = shown; }
    void get_Selection(LONG& from, LONG& to) const override { from = to = caret; }
    void put_Selection(LONG, LONG to) override { caret = to; }
    void MoveCaretToEnd() override { caret = static_cast<LONG>(text.size()); }
    void StartCaretTimer() override {}
    void TakeFocus() override {}
    void Beep(UINT) override {}
    void ShowBox(const CString&, const CString&, UINT) override {}
    void ShowBalloon(const CString&, const CString& said, UINT) override { require(!said.empty()); }
    void HideBalloon() override {}

    CString text;
    LONG caret = 0;
};

// A message of the system's, with anything in it.
const message_source anything_said = [](UINT) -> std::optional<CString> { return L"%s%n%d%1!s!"; };

// What the windows of an editor do with a throw: it is over, and the editor goes on.
template <class Notice>
void notify(Notice notice) {
    try {
        notice();
    } catch (const _com_error& error) {
        require(FAILED(error.Error()));
    }
}

void check_reading(const CString& text, EEditType type) {
    const std::optional<typed_number> number = read_number(text, type);
    if (!number) {
        return;
    }
    require(std::isfinite(number->value));
    require(type == EEditType::Double || number->value == std::nearbyint(number->value));
    // What was made of the number is a number again, and the same to the fifteen digits that a text has.
    const std::optional<typed_number> again = read_number(number->text, type);
    require(again && std::fabs(again->value - number->value) <= 1e-14 * std::fabs(number->value));
}

}  // namespace

// The first byte chooses the type and the first form; each byte 0 then ends one typing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    const EEditType type = (data[0] & 1) != 0 ? EEditType::Integer : EEditType::Double;
    plain_edit edit;
    CNumberEditor editor(edit, nullptr, anything_said);
    editor.SetParams(1.0, least, most, type);
    editor.SetValue(100.0);
    fuzz::bytes rest = fuzz::bytes(data, size).subspan(1);
    while (!rest.empty()) {
        std::size_t length = 0;
        while (length < rest.size() && rest[length] != 0) {
            ++length;
        }
        const CString typed = fuzz::text_of(rest.first(length));
        rest = rest.subspan(std::min(length + 1, rest.size()));
        check_reading(typed, type);
        static_cast<void>(normalised_number(typed));

        notify([&] { editor.OnSetFocus(); });
        edit.text = typed;
        notify([&] { editor.OnUpdate(); });
        notify([&] { editor.Spin(static_cast<LONG>(length) - 3, quantity_step_multiplier(2), true); });
        notify([&] { editor.OnKillFocus(); });
        require(std::isfinite(editor.GetValue()));
        require(std::isfinite(editor.get_AcceptedValue()));
    }
    return 0;
}
