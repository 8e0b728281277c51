// CComboEditor: one of several texts, chosen over a cell.
#pragma once

#include <vector>

#include "editors/cell_editor.h"

namespace mc {

// The arrow keys and letters choose; F4 and Alt+Down drop the list down. What is taken from the
// dropped list, by Enter or the mouse, ends the edit at once.
class CComboEditor final : public CCellEditor {
public:
    // A text that is opened and not among the choices stands before them.
    CComboEditor(CellEditorOwner& owner, std::vector<std::string> choices);

    std::string text() const override;

    void openedWithMouse() override;

protected:
    const fw::MessageMap& messageMap() const override;
    void fill(std::string_view text) override;
    int fitHeight(int room) const override;
    bool dropped() const override;
    void closeDropped() override;

private:
    void onComboCommand(UINT id, UINT code);
    void onTaken() { end(EditEnd::commit); }
    LRESULT selection() const;

    std::vector<std::string> m_choices;
    std::optional<LRESULT> m_beforeDrop;  // the choice when the list dropped down; none else
};

}  // namespace mc
