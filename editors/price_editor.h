// CPriceEditor: a number typed over a cell.
#pragma once

#include "editors/edit_editor.h"

namespace mc {

// The allowed characters say what can be typed at all; whether it is a number is looked at when the
// edit ends. The value changes by typing only: no key and no wheel counts it up or down.
class CPriceEditor final : public CEditEditor {
public:
    using CEditEditor::CEditEditor;

    // Without blanks around it.
    std::string text() const override;

protected:
    std::optional<std::string> refusal() const override;
};

}  // namespace mc
