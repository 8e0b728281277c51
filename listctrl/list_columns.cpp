#include "listctrl/list_columns.h"

#include <algorithm>
#include <optional>

#include "framework/handles.h"
#include "framework/model/dots.h"
#include "listctrl/dialogs/reposition_columns.h"
#include "listctrl/dialogs/user_defined_col.h"
#include "listctrl/list_messages.h"
#include "listctrl/model/fit_columns.h"

namespace mc {
namespace {

// What the control itself does with a notification of its header.
LRESULT handOn(const fw::CWindow& list, NMHEADERA& info) {
    return DefSubclassProc(list.handle(), WM_NOTIFY, info.hdr.idFrom,
                           reinterpret_cast<LPARAM>(&info));
}

}  // namespace

// ---- The header ----

void CListColumns::columnsChanged() {
    m_hooks.cellsMove();
    CListWork::finish([this](const LongWork& work) {
        m_parts.content.columnsChanged(work);
        return true;
    });
    m_parts.header.build(m_parts.content.columns());
    m_parts.header.measure();
    m_hooks.headerBuilt();
    showOrder();
    InvalidateRect(m_list.handle(), nullptr, TRUE);
}

void CListColumns::showOrder() {
    m_parts.header.showSort(m_parts.content.columns(), m_parts.content.order().current());
    m_parts.update.storeChanged();
}

bool CListColumns::isWidthChange(const NMHEADERA& info) const {
    return !m_parts.header.isChanging() && info.pitem != nullptr &&
           (info.pitem->mask & HDI_WIDTH) != 0;
}

LRESULT CListColumns::onItemChanging(NMHEADERA& info) {
    if (isWidthChange(info) && !m_hooks.beforeCellsMove()) return TRUE;
    return handOn(m_list, info);
}

LRESULT CListColumns::onItemChanged(NMHEADERA& info) {
    if (isWidthChange(info) && info.iItem < m_parts.content.shownCount()) {
        ColumnModel& columns = m_parts.content.columns();
        const ColumnId column = m_parts.content.columnAt(info.iItem);
        columns.setWidth(column, fw::unitsNow(columns.width(column), info.pitem->cxy, dpi()));
        onHeaderMoved();
        PostMessageA(m_list.handle(), kHeaderMoved, 0, 0);
    }
    return handOn(m_list, info);
}

void CListColumns::onHeaderMoved() {
    m_parts.header.measure();
    m_hooks.headerBuilt();
    InvalidateRect(m_list.handle(), nullptr, FALSE);
}

void CListColumns::followDpi() {
    m_parts.header.widthsChanged(m_parts.content.columns());
    onHeaderMoved();
}

LRESULT CListColumns::onDividerDone(NMHEADERA& info) {
    const LRESULT result = handOn(m_list, info);
    if (info.iItem >= 0 && info.iItem < m_parts.content.shownCount())
        PostMessageA(m_list.handle(), kKeepWidth, toIndex(m_parts.content.columnAt(info.iItem)), 0);
    return result;
}

void CListColumns::onKeepWidth(ColumnId column) {
    if (m_parts.content.columns().has(column)) keepWidths({&column, 1});
}

void CListColumns::onCaptionClick(NMLISTVIEW& click) {
    if (click.iSubItem < 0 || click.iSubItem >= m_parts.content.shownCount()) return;
    if (!m_hooks.beforeCellsMove()) return;
    const ColumnId column = m_parts.content.columnAt(click.iSubItem);
    const bool sorted = m_parts.work.run("sorting", [&](const LongWork& work) {
        return m_parts.content.order().captionClicked(column, work);
    });
    if (sorted) showOrder();
}

// At 96 dots per inch.
std::vector<int> CListColumns::fittedWidths(unsigned command, const LongWork& work) const {
    const int client = fw::unitsWithin(static_cast<int>(m_list.clientRect().right), dpi());
    const int count = m_parts.content.shownCount();
    const auto around = [this](int pixels) { return fw::unitsAround(pixels, dpi()); };
    std::vector<int> widths;
    for (int item = 0; item < count; ++item) {
        const ColumnId column = m_parts.content.columnAt(item);
        const int data =
            command != kFitToWindowCommand ? around(m_parts.painter.dataWidth(item, work)) : 0;
        const int whole = std::max(data, around(m_parts.painter.captionWidth(column)));
        widths.push_back(fittedWidth(command, data, whole, client, count));
    }
    return widths;
}

void CListColumns::fit(unsigned command) {
    std::vector<int> widths;
    const bool measured = m_parts.work.run("fitting the columns", [&](const LongWork& work) {
        widths = fittedWidths(command, work);
        return true;
    });
    const int count = m_parts.content.shownCount();
    if (!measured || widths.size() != static_cast<std::size_t>(count)) return;
    const fw::RedrawOffScope off(m_list.handle());
    for (int item = 0; item < count; ++item) setWidth(item, widths[static_cast<std::size_t>(item)]);
    m_parts.header.measure();
    m_hooks.headerBuilt();
    keepWidths(m_parts.content.columns().shown());
}

void CListColumns::setWidth(int item, int width) {
    m_parts.content.columns().setWidth(m_parts.content.columnAt(item), width);
    fw::ListView(m_list.handle()).setColumnWidth(item, m_list.scaled(width));
}

void CListColumns::widen(ColumnId column, int steps) {
    constexpr int kStep = 8, kMin = 24, kMax = 2000;  // pixels at 96 dots per inch
    ColumnModel& columns = m_parts.content.columns();
    const auto position = columns.positionOf(column);
    if (!position) return;
    const int width = columns.width(column) + steps * kStep;
    setWidth(static_cast<int>(*position), std::clamp(width, kMin, kMax));
    onHeaderMoved();
    keepWidths({&column, 1});
}

// ---- The profile ----

void CListColumns::loadProfile() {
    std::string stored;
    if (m_services.settings().AccessColumnProfile(SETTING_READ, m_name, stored) != 0 &&
        !stored.empty())
        m_parts.content.columns().apply(readProfile(stored));
    columnsChanged();
}

bool CListColumns::saveProfile() {
    std::string text = profileText(m_parts.content.columns().profile());
    if (text.size() <= kMaxProfile &&  // else it would come back cut
        m_services.settings().AccessColumnProfile(SETTING_WRITE, m_name, text) != 0)
        return true;
    m_services.showMessage("Error while saving column profile");
    return false;
}

// In the stored profile, whatever columns show and in whichever order at the moment; without one,
// in that of all columns in their first order. A failure is no reason to disturb the user.
void CListColumns::keepWidths(std::span<const ColumnId> columns) {
    const ColumnModel& model = m_parts.content.columns();
    std::string text;
    const bool any = m_services.settings().AccessColumnProfile(SETTING_READ, m_name, text) != 0;
    ColumnModel first = model;
    first.reset();
    ColumnProfile stored = any && !text.empty() ? readProfile(text) : first.profile();
    if (!model.putWidths(columns, stored)) return;
    text = profileText(stored);
    if (text.size() <= kMaxProfile)
        m_services.settings().AccessColumnProfile(SETTING_WRITE, m_name, text);
}

// ---- The dialogs ----

void CListColumns::reposition(bool offersDefaultSort) {
    const ColumnProfileActions actions{
        [this](const ColumnLayout& layout) {
            if (m_list.handle() != nullptr) applyLayout(layout);
        },
        [this] { return m_list.handle() == nullptr || saveProfile(); }};
    repositionColumns(m_list.handle(), m_parts.content.columns(),
                      m_parts.content.order().standard(), offersDefaultSort, actions);
}

void CListColumns::applyLayout(const ColumnLayout& layout) {
    if (layout.ownWidths) m_parts.content.columns().reset();
    m_parts.content.columns().show(layout.shown);
    m_parts.content.order().setStandard(layout.sort);
    columnsChanged();
}

// The profile is stored at once: a column stays until the user deletes it.
void CListColumns::addUserColumn() {
    ColumnModel& columns = m_parts.content.columns();
    const auto column = askNewColumn(m_list.handle(), m_name, columns);
    if (!column || m_list.handle() == nullptr || !columns.add(*column)) return;
    columnsChanged();
    saveProfile();
}

void CListColumns::deleteUserColumn() {
    ColumnModel& columns = m_parts.content.columns();
    const auto column = askColumnToDelete(m_list.handle(), m_name, columns);
    if (!column || m_list.handle() == nullptr || !columns.remove(*column)) return;
    m_parts.content.columnRemoved(*column);
    m_hooks.columnRemoved(*column);
    columnsChanged();
    saveProfile();
}

}  // namespace mc
