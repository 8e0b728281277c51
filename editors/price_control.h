// CPriceControl: a number typed over a cell.
#pragma once

#include "editors/edit_control.h"

namespace mc {

// The allowed characters say what can be typed at all; whether it is a number is looked at when the
// edit ends. The value changes by typing only: no key and no wheel counts it up or down.
class CPriceControl final : public CEditControl {
public:
    using CEditControl::CEditControl;

    // Without blanks around it.
    std::string text() const override;
    std::optional<std::string> refusal() const override;
};

}  // namespace mc
