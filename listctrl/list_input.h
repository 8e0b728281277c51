// CListInput: the mouse and the keys in a list's rows, and the selection that they make.
//
// What the checker selects (by mouse and keys, or a program by LVM_SETITEMSTATE) is notified to the
// parent with one LVN_ITEMCHANGED of item -1, however many rows it concerns: uChanged is
// LVIF_STATE, uNewState LVIS_SELECTED when any row is selected now and uOldState when none is. What
// rows that come, go, move or are filtered out change is not. The parent may end the list
// meanwhile.
#pragma once

#include <functional>

#include "framework/window.h"
#include "listctrl/current_cell.h"
#include "listctrl/list_header.h"
#include "listctrl/list_marquee.h"
#include "listctrl/list_update.h"
#include "listctrl/model/list_content.h"
#include "listctrl/model/table/selection_rules.h"
#include "listctrl/model/table/type_to_find.h"

namespace mc {

// Which modifier keys are down now.
Modifiers modifiersDown();

class CListInput {
public:
    // All must outlive the object.
    CListInput(const fw::CWindow& list, const ListContent& content, const CListHeader& header,
               CListUpdate& update)
        : m_list(list),
          m_content(content),
          m_header(header),
          m_update(update),
          m_rules(content.store()),
          m_marquee(list, header, content.store()),
          m_current(list, content, header) {}

    // Changes the selection for the checker, and notifies the parent if that changed it. This and
    // the next three: false when the list ended with that.
    bool select(const std::function<void()>& change);
    bool press(POINT client);
    bool pressTwice(POINT client);
    bool goTo(std::size_t row);
    void selectAll();

    // The key that is down runs a command: its character is no letter to find a row by.
    void keyTaken() { m_keyTaken = true; }

    // The column whose first letters are typed to find a row: the sorted, else the first one.
    ColumnId findColumn() const;

    CCurrentCell& current() { return m_current; }

    // A drag from empty ground that selects rows ends; the selection is put back.
    void endMarquee();
    void drawMarquee() const { m_marquee.draw(); }

    void onButtonDown(POINT client) { press(client); }
    void onButtonUp(POINT client);
    bool onMouseMove(POINT client);
    void onCaptureLost();
    bool onTimer(UINT_PTR id);
    void onDoubleClick(POINT client) { pressTwice(client); }
    void onRightDown(POINT client);
    void onRightUp(POINT client);
    LRESULT onGetDialogCode(const MSG* message) const;
    bool onKeyDown(UINT key, bool repeated);
    void onCharacter(UINT character);
    void onFocusChanged();

private:
    bool navigate(UINT key);
    bool selectByKey(UINT key, Modifiers keys);

    const fw::CWindow& m_list;
    const ListContent& m_content;
    const CListHeader& m_header;
    CListUpdate& m_update;
    SelectionRules m_rules;
    CListMarquee m_marquee;
    CCurrentCell m_current;
    TypeToFind m_find;
    bool m_keyTaken = false;
};

}  // namespace mc
