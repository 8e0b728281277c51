// CComboControl: one of several texts, chosen over a cell.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "editors/cell_control.h"
#include "framework/controls.h"

namespace mc {

// The arrow keys and letters choose; F4 and Alt+Down drop the list down. What is taken from the
// dropped list, by Enter or the mouse, ends the edit at once.
class CComboControl final : public CCellControl {
public:
    // A text that is opened and not among the choices becomes the first of them.
    explicit CComboControl(std::vector<std::string> choices);

    std::string text() const override;

    int fitHeight(int room) const override;
    void openedWithMouse() override { combo().drop(true); }
    bool dropped() const override { return combo().dropped(); }
    void closeDropped() override { combo().drop(false); }
    void onCommand(UINT code) override;

protected:
    const fw::MessageMap& messageMap() const override;
    void fill(std::string_view text) override;

private:
    void onTaken();
    fw::Combo combo() const { return fw::Combo(handle()); }

    std::vector<std::string> m_choices;
    std::optional<std::size_t> m_beforeDrop;  // the choice when the list dropped down; none else
};

}  // namespace mc
