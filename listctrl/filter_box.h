// CFilterBox: the window of one column's filter box, an edit with a drop-down of the column's
// values. FilterBox says what it shows and what applies.
//
// By itself the control completes a text when its list drops, steps through the values at arrow
// keys and the wheel, and later writes the selected line of its list into the edit. So a closed box
// has no lines, its keys are handled here, and after each drop and close the box shows its own text
// again, when the control has finished with the message.
//
// The drop-down draws its lines itself: beside each value it says how many rows it would leave. The
// values come by that number, or by name when the list is opened with Ctrl down.
#pragma once

#include <optional>
#include <string>

#include "framework/controls.h"
#include "framework/window.h"
#include "listctrl/model/filter_box.h"

namespace mc {

// What the boxes ask the list that they belong to, and report to it. An item is a shown column.
class FilterHeaderOwner {
public:
    // None when the user ended it.
    virtual std::optional<DistinctValues> filterChoices(int item, ValueOrder order) = 0;
    // Another filter applies. Called last: the box may be gone when it returns.
    virtual void filterChanged() = 0;
    // A part of the list, such as a box, got the focus or lost it.
    virtual void partFocusChanged() = 0;

protected:
    ~FilterHeaderOwner() = default;
};

class CFilterBox : public fw::CWindow {
public:
    CFilterBox(FilterHeaderOwner& owner, int item) : m_owner(owner), m_item(item) {}
    ~CFilterBox() override;

    // A box whose lines are drawn by its owner does not follow the font: it takes the heights of
    // one that does, which costs making that one.
    struct Heights {
        int closed = 0, line = 0;  // pixels
    };
    static Heights heightsIn(HFONT font, HWND header);

    // Makes the box as a child of the header; `name` is for screen readers.
    bool create(HWND header, UINT id, const std::string& name, HFONT font, const Heights& heights,
                ColumnFilter filter);

    // Another font, which the caller keeps; the text and its selection stay.
    void setFont(HFONT font, const Heights& heights);
    // Closes the drop-down as the focus going elsewhere does: nothing is chosen.
    void closeDrop() const;

    int height() const;
    // Costs nothing when the box is there already.
    void moveTo(int left, int top, int width);

    const ColumnFilter& filter() const { return m_box.applied(); }
    HWND edit() const { return m_edit.handle(); }

    // A typed text that waits for its pause applies. Returns whether there was one; the owner is
    // not called.
    bool applyTyped();

    // Has another filter, or none, without a call of the owner.
    void putBack(ColumnFilter filter);

    // Enter or Esc, just pressed; false for any other key. A key that is held down counts once: its
    // repetitions are kept from here.
    bool key(UINT key);

    // A notification of the control, handed on by its parent (CBN_).
    void onNotification(UINT code);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    // The control's edit, for the keys that it keeps from the control.
    class CEdit final : public fw::CWindow {
    public:
        explicit CEdit(CFilterBox& box) : m_box(box) {}
        using CWindow::subclass;
        void showBeginning() const { fw::Edit(handle()).select(0, 0); }

    protected:
        const fw::MessageMap& messageMap() const override;

    private:
        LRESULT onGetDialogCode(const MSG* message);
        bool onKeyDown(UINT key, bool repeated) { return m_box.onKeyDown(key, repeated); }
        bool onSystemKeyDown(UINT key, bool repeated);
        void onFocusLost();
        bool onCharacter(UINT character);

        CFilterBox& m_box;
    };

    bool onKeyDown(UINT key, bool repeated);
    bool onTimer(UINT_PTR id);
    void onSettle();
    void onDropped();
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);

    // An index in it is a FilterBox::Line.
    fw::Combo combo() const { return fw::Combo(handle()); }
    void toggle();
    bool stepIn();
    void enter();
    void close(bool filters);
    void show();
    void apply();

    FilterHeaderOwner& m_owner;
    int m_item;
    FilterBox m_box;
    CEdit m_edit{*this};
    HWND m_label = nullptr;
    bool m_showing = false;  // the text is being set, not typed
    bool m_applies = false;  // once the control has finished
};

}  // namespace mc
