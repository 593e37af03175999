#pragma once

#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditCtrl.h"

namespace WTLControls::NumberEditors {

// An edit for digits only.
class CNaturalNumbersEditorCtrl : public CNumberEditCtrl {
public:
    explicit CNaturalNumbersEditorCtrl(INumberEditorHost* host) : CNumberEditCtrl(host) {
        m_digits_only = true;
    }
};

}  // namespace WTLControls::NumberEditors
