// CEditControl: a line of text typed over a cell.
#pragma once

#include "editors/cell_control.h"

namespace mc {

class CEditControl : public CCellControl {
public:
    // As much as a cell shows.
    static constexpr std::size_t kMaxText = 255;

    // Other characters than the allowed ones cannot be typed, and text that has one cannot be
    // pasted; no allowed characters means all. A longer text than kMaxText can be opened, but
    // not typed.
    explicit CEditControl(std::string_view allowed);

    std::string text() const override;

    std::optional<std::string> refusal() const override;
    int fitHeight(int room) const override;
    void select() override;

protected:
    void fill(std::string_view text) override;
    bool onCharacter(UINT character) override;
    bool onPaste() override;

private:
    bool fits(std::string_view pasted) const;

    std::string m_allowed;
};

}  // namespace mc
