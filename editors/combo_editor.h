// CComboEditor: one of several texts, chosen over a cell.
#pragma once

#include <vector>

#include "editors/cell_editor.h"
#include "framework/controls.h"

namespace mc {

// The arrow keys and letters choose; F4 and Alt+Down drop the list down. What is taken from the
// dropped list, by Enter or the mouse, ends the edit at once.
class CComboEditor final : public CCellEditor {
public:
    // A text that is opened and not among the choices becomes the first of them.
    CComboEditor(CellEditorOwner& owner, std::vector<std::string> choices);

    std::string text() const override;

    void openedWithMouse() override { combo().drop(true); }

protected:
    const fw::MessageMap& messageMap() const override;
    void fill(std::string_view text) override;
    int fitHeight(int room) const override;
    bool dropped() const override { return combo().dropped(); }
    void closeDropped() override { combo().drop(false); }

private:
    void onComboCommand(UINT id, UINT code);
    void onTaken() { end(EditEnd::commit); }
    fw::Combo combo() const { return fw::Combo(control()); }

    std::vector<std::string> m_choices;
    std::optional<std::size_t> m_beforeDrop;  // the choice when the list dropped down; none else
};

}  // namespace mc
