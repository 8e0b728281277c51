#include "listctrl/list_commands.h"

#include <algorithm>
#include <iterator>

#include "framework/dialog.h"
#include "framework/handles.h"
#include "framework/list_view.h"
#include "listctrl/dialogs/whole_text.h"

namespace mc {

constexpr CListCommands::Command CListCommands::kCommands[] = {
    {kFitToDataCommand, [](CListCommands& c) { c.m_parts.columns.fit(kFitToDataCommand); }},
    {kFitToHeaderCommand, [](CListCommands& c) { c.m_parts.columns.fit(kFitToHeaderCommand); }},
    {kFitToWindowCommand, [](CListCommands& c) { c.m_parts.columns.fit(kFitToWindowCommand); }},
    {kRepositionCommand,
     [](CListCommands& c) { c.m_parts.columns.reposition(c.m_offers.defaultSort); }},
    {kExportCommand, [](CListCommands& c) { c.m_export.writeAll(); }},
    {kGridLinesCommand, [](CListCommands& c) { c.toggleGridLines(); }},
    {kCustomizeCommand,
     [](CListCommands& c) { c.m_parts.appearance.customize(c.m_parts.content.columns()); }},
    {kCopyCommand, [](CListCommands& c) { c.m_export.copySelected(c.m_list.handle()); }},
    {kAddColumnCommand, [](CListCommands& c) { c.m_parts.columns.addUserColumn(); }},
    {kDeleteColumnCommand, [](CListCommands& c) { c.m_parts.columns.deleteUserColumn(); }},
    {kSelectAllCommand, [](CListCommands& c) { c.m_parts.input.selectAll(); }},
    {kWholeTextCommand, [](CListCommands& c) { c.showWholeText(); }},
    {kWidenCommand,
     [](CListCommands& c) { c.m_parts.columns.widen(c.m_parts.input.current().column(), 1); }},
    {kNarrowCommand,
     [](CListCommands& c) { c.m_parts.columns.widen(c.m_parts.input.current().column(), -1); }},
    {kSortCommand, [](CListCommands& c) { c.sortByColumn(); }},
};

void CListCommands::run(unsigned command) {
    if (!m_hooks.beforeCellsMove() || m_hooks.runOwnCommand(command)) return;
    const auto* found = std::ranges::find(kCommands, command, &Command::id);
    if (found != std::end(kCommands)) found->run(*this);
}

void CListCommands::offerColumns(bool defaultSort, bool userColumns) {
    m_offers.reposition = true;
    m_offers.defaultSort = defaultSort;
    m_offers.userColumns = userColumns;
}

ListOffers CListCommands::offers() const {
    const ColumnModel& columns = m_parts.content.columns();
    ListOffers offers = m_offers;
    offers.exportAllowed = m_services.mayExport();
    offers.hasUserColumns = columns.size() > columns.dataSize();
    offers.customize = true;
    m_hooks.addOffers(offers);
    return offers;
}

LRESULT CListCommands::postMenu(Menu menu, POINT screen) const {
    fw::postMenu(m_list.handle(), menu, screen);
    return 1;
}

void CListCommands::onOpenMenu(UINT which, POINT screen) {
    if (!m_hooks.beforeCellsMove()) return;
    const fw::Menu menu(CreatePopupMenu());
    for (const ListMenuEntry& entry :
         which == kHeaderMenu ? headerMenu(offers()) : itemMenu(offers())) {
        const UINT flags = entry.text.empty() ? MF_SEPARATOR
                                              : (entry.greyed ? MF_GRAYED : MF_STRING) |
                                                    (entry.checked ? MF_CHECKED : MF_UNCHECKED);
        AppendMenuA(menu.get(), flags, entry.command, entry.text.data());
    }
    const UINT chosen = fw::trackMenu(menu.get(), screen, m_list.handle());
    if (chosen != 0) run(chosen);
}

void CListCommands::onContextMenu(POINT screen) {
    if (screen.x == -1 && screen.y == -1) openMenu(modifiersDown().ctrl);
}

void CListCommands::openMenu(bool ofCaptions) {
    POINT at =
        ofCaptions ? m_parts.input.current().captionPoint() : m_parts.input.current().rowPoint();
    ClientToScreen(m_list.handle(), &at);
    postMenu(ofCaptions ? kHeaderMenu : kItemMenu, at);
}

// As by a click on the caption.
void CListCommands::sortByColumn() {
    const auto position = m_parts.content.columns().positionOf(m_parts.input.current().column());
    if (!position) return;
    NMLISTVIEW click{};
    click.hdr = {m_list.handle(), static_cast<UINT_PTR>(GetDlgCtrlID(m_list.handle())),
                 static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iItem = -1;
    click.iSubItem = static_cast<int>(*position);
    SendMessageA(m_list.handle(), fw::kReflectedNotify, click.hdr.idFrom,
                 reinterpret_cast<LPARAM>(&click));
}

// Code 0 is a menu's; others come from children of the list.
void CListCommands::onMenuCommand(UINT command, UINT code) {
    if (code == 0) run(command);
}

// Ctrl with Alt types characters (AltGr).
bool CListCommands::onKeyDown(UINT key, bool) {
    const Modifiers keys = modifiersDown();
    if (key == VK_APPS) {
        openMenu(keys.ctrl);
        return true;
    }
    const KeyCommands found = keyCommands(key, keys.ctrl, keys.shift, offers());
    if (fw::isDown(VK_MENU)) return found.consumed;
    if (!found.commands.empty()) m_parts.input.keyTaken();
    for (const unsigned each : found.commands) run(each);
    return found.consumed;
}

// Of the focused row.
void CListCommands::showWholeText() {
    const auto row = m_parts.content.store().selection().focusedRow();
    if (!row) return;
    mc::showWholeText(m_hooks.wholeTexts(*row, m_parts.input.current().column()),
                      m_services.mayExport(), m_list.handle());
}

void CListCommands::toggleGridLines() {
    const fw::ListView view(m_list.handle());
    view.setExtendedStyle(LVS_EX_GRIDLINES, view.extendedStyle() ^ LVS_EX_GRIDLINES);
}

}  // namespace mc
