#include "workbench/checker_lists.h"

#include <utility>

#include "framework/hwnd.h"
#include "framework/list_view.h"
#include "listctrl/list_colors.h"
#include "res/resource_ids.h"
#include "workbench/model/queue_words.h"
#include "workbench/model/records/main_list.h"

namespace mc {
namespace {

constexpr char kAllowedInValues[] =
    "0123456789.-qwertyuiopasdfghjklzxcvbnmQWERTYUIOPASDFGHJKLZXCVBNM"
    "!@#$%^&*()_`,./;':}{|~ ";

// Among the views that the holder frame holds.
constexpr std::size_t kMainView = 0;
constexpr std::size_t kDetailsView = 1;

constexpr char kMainListName[] = "Maker checker List";
constexpr char kMainTitle[] = "Maker-Checker";
constexpr char kDetailsListName[] = "Maker Checker Details List";
constexpr char kDetailsTitle[] = "Maker Checker Details";

// White, unless the user's text is too light to be read on it.
COLORREF detailsBackground() {
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    constexpr COLORREF kWhite = RGB(255, 255, 255);
    const bool unreadable = fw::contrast(text, kWhite) < fw::kReadable;
    return unreadable || highContrast() ? GetSysColor(COLOR_WINDOW) : kWhite;
}

HeldView held(CFilterListCtrl& list, const char* title, const char* keyName,
              std::function<std::string()> note, HWND foot = nullptr) {
    return {list.handle(),   title, keyName, [&list] { list.commands().run(kCustomizeCommand); },
            std::move(note), foot};
}

// Folds hide lines too, and are no news.
std::string noteOf(const RecordStore& lines, const std::string& work) {
    const std::size_t filters = lines.filters().columns().size();
    if (filters == 0) return work;
    return summaryText({.rows = lines.rowCount(),
                        .records = lines.stored().size(),
                        .filters = filters,
                        .work = work});
}

}  // namespace

void CheckerLists::open(HWND pane, const RECT& rect, PendingChanges& changes) {
    m_main = std::make_unique<CPendingList>(m_services, changes);
    m_details = std::make_unique<CMultiLineEditListCtrl>(m_services, m_lines);
    m_holder.create(pane, rect, IDC_HOLDER_FRAME);
    m_main->create(m_holder.handle(), IDC_MAIN_LIST, kMainListName, kMainTitle);
    m_details->create(m_holder.handle(), IDC_DETAILS_LIST, kDetailsListName, kDetailsTitle);
    m_main->painter().setEmptyText(emptyQueueText(changes.states().arrivals()));
    m_main->onUpdate([this, &changes] {
        m_main->painter().setEmptyText(emptyQueueText(changes.states().arrivals()));
        m_holder.noteChanged(kMainView);
        m_news();
    });
    m_details->onUpdate([this] {
        m_holder.noteChanged(kDetailsView);
        m_line.update();
    });
    m_line.create(m_holder.handle(), IDC_DETAIL_LINE);
    m_holder.setViews(
        {held(*m_main, kMainTitle, kMainListName, [this, &changes] { return mainNote(changes); }),
         held(
             *m_details, kDetailsTitle, kDetailsListName,
             [this] { return noteOf(m_lines.rows(), m_details->work().note()); },
             m_line.handle())});
    m_main->setColumns(
        kMainColumns,
        [&changes](Slot change, ColumnId column) {
            return changes.table().cellText(change, column);
        },
        kMandatoryMainColumns,
        [&changes](Slot change, ColumnId column) {
            return changes.table().wholeText(change, column);
        });
    m_main->access().setListName(
        [this, &changes] { return std::string(kMainTitle) + " - " + mainNote(changes); });
    m_details->access().setListName([this] {
        const std::string note = noteOf(m_lines.rows(), m_details->work().note());
        return fw::textOf(m_details->handle()) + (note.empty() ? "" : " - " + note);
    });
    m_main->commands().offerColumns(true, true);
    m_main->storeChanged();
    m_details->setDetailColumns();
    m_details->commands().offerColumns(false, false);
    m_details->appearance().setBackground(detailsBackground());
    m_details->setEditRules({kAllowedInValues, {"E", "D"}});
    captionDetails(m_caption);
}

std::string CheckerLists::mainNote(const PendingChanges& changes) const {
    ListSummary summary = queueSummary(changes);
    summary.work = m_main->work().note();
    return summaryText(summary);
}

// ---- The windows ----

void CheckerLists::move(const RECT& rect) {
    if (m_holder.handle() != nullptr) m_holder.move(rect);
}

void CheckerLists::followDpi() {
    if (m_details == nullptr) return;  // the last that is made
    m_main->followDpi();
    m_details->followDpi();
}

void CheckerLists::showWindows() {
    for (const HWND window :
         {m_main->handle(), m_details->handle(), m_line.handle(), m_holder.handle()})
        ShowWindow(window, SW_SHOWNA);
}

void CheckerLists::colorsChanged() {
    if (m_details != nullptr) m_details->appearance().setBackground(detailsBackground());
}

void CheckerLists::bringIntoView(std::size_t mainRow) const {
    fw::ListView(m_main->handle()).bringIntoView(mainRow);
}

// ---- What the rules say ----

void CheckerLists::rowsChanged() {
    if (m_main != nullptr) m_main->storeChanged();
    m_news();
}

void CheckerLists::selectChange(Slot change) {
    if (m_main == nullptr) return;
    if (const auto row = m_main->store().rowOf(change)) m_main->input().goTo(*row);
}

void CheckerLists::emptyDetails() {
    m_line.valuesChanged();
    if (m_details != nullptr) m_details->empty();
}

// Filters belong to the details they were typed for.
void CheckerLists::showDetails(std::vector<DetailGroup> groups, bool anotherChange) {
    if (m_details == nullptr) return;
    m_line.valuesChanged();
    if (anotherChange) m_details->resetFilters();
    m_details->replace(std::move(groups));
}

void CheckerLists::editsSent() {
    m_line.valuesChanged();
    if (m_details != nullptr) m_details->editsSent();
}

void CheckerLists::editsDropped() {
    m_line.valuesChanged();
    if (m_details != nullptr) m_details->editsDropped();
}

// The workbench says its first caption before the lists have windows.
void CheckerLists::captionDetails(const DetailsCaption& caption) {
    m_caption = caption;
    if (m_details == nullptr) return;
    m_details->painter().setEmptyText(caption.emptyText);
    m_details->setDimmed(caption.dimmed);
    std::string title = caption.title;
    if (!caption.neighbours.empty()) title += " - " + caption.neighbours;
    m_holder.setTitle(kDetailsView, title);
    SetWindowTextA(m_details->handle(), title.c_str());  // what screen readers call it
    m_news();
}

// The row shows what the update will send, not what was typed. A value that will not be sent stays
// as it was; a row without a field shows what was typed.
void CheckerLists::takeEdit(const EndOfEdit& edit, const std::optional<std::string>& stored) {
    if (edit.column != "Value" || (!stored && edit.row.mnemonic != 0)) return;
    m_line.valuesChanged();
    const std::string before = std::exchange(edit.row.value, stored.value_or(edit.typed));
    if (!edit.row.edited) edit.row.received = before;
    edit.row.edited = stored.has_value();
}

// ---- Keys ----

// The filter row, the list below it, the bar, and the same for the details.
std::vector<HWND> CheckerLists::tabStops() const {
    std::vector<HWND> stops;
    const auto append = [&stops](const CFilterListCtrl& list) {
        const auto boxes = list.filterStops();
        stops.insert(stops.end(), boxes.begin(), boxes.end());
        stops.push_back(list.handle());
    };
    append(*m_main);
    stops.push_back(m_holder.bar(0));
    append(*m_details);
    return stops;
}

bool CheckerLists::claims(HWND control, UINT key) const {
    if (m_main == nullptr) return false;
    return m_main->claimsIn(control, key) || m_details->claimsIn(control, key);
}

// A key that is held since it was pressed in an editor never leaves the editors.
CheckerLists::KeyUse CheckerLists::dialogKey(UINT key, bool repeated) {
    if (m_main == nullptr) return KeyUse::taken;
    const HWND focus = GetFocus();
    const bool editing = m_details->editing(focus);
    if (!repeated) m_heldInEditor = editing;
    if (editing ? m_details->editorKey(key, repeated) : repeated && m_heldInEditor)
        return KeyUse::taken;
    if (repeated) return KeyUse::none;
    if (m_main->dialogKey(focus, key) || m_details->dialogKey(focus, key)) return KeyUse::taken;
    const bool inList = focus == m_main->handle() || focus == m_details->handle();
    return key == VK_ESCAPE && inList ? KeyUse::dropsEdits : KeyUse::none;
}

}  // namespace mc
