// CListCommands: the menus of a list and its command keys, and what runs when one is chosen
// (model/list_commands.h is what they offer).
#pragma once

#include "framework/hwnd.h"
#include "framework/window.h"
#include "listctrl/list_appearance.h"
#include "listctrl/list_columns.h"
#include "listctrl/list_export.h"
#include "listctrl/list_hooks.h"
#include "listctrl/list_input.h"
#include "listctrl/list_services.h"
#include "listctrl/model/list_commands.h"
#include "listctrl/model/list_content.h"

namespace mc {

class CListCommands {
public:
    struct Parts {
        const ListContent& content;
        CListColumns& columns;
        CListAppearance& appearance;
        CListInput& input;
    };
    // All must outlive the object.
    CListCommands(const fw::CWindow& list, ListServices& services, ListHooks& hooks, Parts parts)
        : m_list(list),
          m_services(services),
          m_hooks(hooks),
          m_parts(parts),
          m_export(services, parts.content) {}

    // The header's menu offers the dialogs for columns from now on.
    void offerColumns(bool defaultSort, bool userColumns);
    void setExportEnabled(bool enabled) { m_offers.exportEnabled = enabled; }

    ListOffers offers() const;
    void run(unsigned command);

    // Answered, so that no control asks further up for a menu.
    LRESULT onRightClick(NMHDR&) { return postMenu(kItemMenu, fw::mousePoint()); }
    LRESULT onHeaderRightClick(NMHDR&) { return postMenu(kHeaderMenu, fw::mousePoint()); }
    // By mouse the notifications above came before it.
    void onContextMenu(POINT screen);
    // As by the key for it: at the focused row, or with Ctrl at the caption of the column.
    void openMenu(bool ofCaptions);
    void onOpenMenu(UINT menu, POINT screen);
    void onMenuCommand(UINT command, UINT code);
    bool onKeyDown(UINT key, bool repeated);
    bool onKeyUp(UINT key, bool) { return key == VK_APPS; }  // its menu opened with the press

private:
    struct Command {
        unsigned id;
        void (*run)(CListCommands& commands);
    };
    static const Command kCommands[];

    enum Menu : UINT { kItemMenu, kHeaderMenu };
    LRESULT postMenu(Menu menu, POINT screen) const;
    void sortByColumn();
    void toggleGridLines();
    void showWholeText();

    const fw::CWindow& m_list;
    ListServices& m_services;
    ListHooks& m_hooks;
    Parts m_parts;
    CListExport m_export;
    ListOffers m_offers;  // those that the list's owner chooses
};

}  // namespace mc
