#include "workbench/decisions_panel.h"

#include <algorithm>

#include "framework/hwnd.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

constexpr char kListName[] = "Maker Checker Decisions List";
constexpr char kTitle[] = "Maker Checker Decisions";

std::string titleOf(const DecisionLog& log) {
    return "Decisions of this session: " + log.summary();
}

}  // namespace

bool DecisionsPanel::create(HWND pane, DecisionLog& log) {
    if (m_list != nullptr) return m_frame.handle() != nullptr;
    m_list = std::make_unique<CFilterListCtrl>(m_services, log.rows());
    if (!m_frame.create(pane, RECT{}, IDC_DECISIONS_FRAME) ||
        !m_list->create(m_frame.handle(), IDC_DECISIONS_LIST, kListName, kTitle))
        return false;
    m_list->painter().setEmptyText("No decisions in this session");
    m_frame.setViews(
        {{m_list->handle(), titleOf(log), "", [this] { m_list->commands().run(kCustomizeCommand); },
          [this] { return m_list->work().note(); }}});
    m_list->onUpdate([this] { m_frame.noteChanged(0); });
    m_list->setColumns(
        kDecisionColumns,
        [&log](Slot decision, ColumnId column) { return log.cellText(decision, column); },
        kMandatoryDecisionColumns);
    m_list->access().setListName([&log] { return titleOf(log); });
    m_list->commands().offerColumns(true, false);
    m_list->storeChanged();
    log.setListener([this, &log] { logChanged(log); });
    return true;
}

void DecisionsPanel::logChanged(const DecisionLog& log) {
    m_list->storeChanged();
    if (m_frame.handle() != nullptr) m_frame.setTitle(0, titleOf(log));
}

void DecisionsPanel::open(HWND pane, DecisionLog& log, Slot decision) {
    if (!create(pane, log)) return;
    m_open = true;
    ShowWindow(m_frame.handle(), SW_SHOWNA);
    SetFocus(m_list->handle());
    const auto row = decision != kNoSlot ? log.rows().rowOf(decision) : std::nullopt;
    if (!row) return;
    log.rows().selection().clear();
    log.rows().selection().select(*row, true);
    log.rows().selection().setFocus(*row);
    log.rows().selection().setAnchor(*row);
    m_list->storeChanged();
}

void DecisionsPanel::close() {
    m_open = false;
    ShowWindow(m_frame.handle(), SW_HIDE);
}

bool DecisionsPanel::hasFocus() const {
    return isOpen() && fw::isWithin(m_frame.handle(), GetFocus());
}

// Two fifths, at least a few rows, at most half. The focused row stays in sight.
RECT DecisionsPanel::takeRoom(RECT room) {
    if (!isOpen()) return room;
    const int height = std::max(fw::heightOf(room), 0);
    const int own = std::min(std::max(height * 2 / 5, m_frame.scaled(130)), height / 2);
    RECT mine = room;
    mine.top = room.bottom - own + m_frame.scaled(4);
    m_frame.move(mine);
    if (const auto row = m_list->store().selection().focusedRow())
        fw::ListView(m_list->handle()).bringIntoView(*row);
    room.bottom -= own;
    return room;
}

void DecisionsPanel::layOut() {
    if (isOpen()) m_frame.layOut();
}

// ---- Keys ----

std::vector<HWND> DecisionsPanel::tabStops() const {
    if (!isOpen()) return {};
    std::vector<HWND> stops = m_list->filterStops();
    stops.push_back(m_list->handle());
    return stops;
}

bool DecisionsPanel::claims(HWND control, UINT key) const {
    return isOpen() && m_list->claimsIn(control, key);
}

DecisionsPanel::KeyUse DecisionsPanel::dialogKey(UINT key, bool repeated) {
    if (!hasFocus() || repeated) return KeyUse::none;
    if (m_list->dialogKey(GetFocus(), key)) return KeyUse::taken;
    return key == VK_ESCAPE && GetFocus() == m_list->handle() ? KeyUse::closes : KeyUse::none;
}

}  // namespace mc
