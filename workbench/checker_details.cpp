#include "workbench/checker_details.h"

#include <utility>

#include "framework/hwnd.h"
#include "listctrl/list_colors.h"
#include "listctrl/model/list_summary.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

constexpr char kAllowedInValues[] =
    "0123456789.-qwertyuiopasdfghjklzxcvbnmQWERTYUIOPASDFGHJKLZXCVBNM"
    "!@#$%^&*()_`,./;':}{|~ ";

constexpr char kDetailsListName[] = "Maker Checker Details List";
constexpr char kDetailsTitle[] = "Maker Checker Details";

// White, unless the user's text is too light to be read on it.
COLORREF detailsBackground() {
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    constexpr COLORREF kWhite = RGB(255, 255, 255);
    const bool unreadable = fw::contrast(text, kWhite) < fw::kReadable;
    return unreadable || highContrast() ? GetSysColor(COLOR_WINDOW) : kWhite;
}

}  // namespace

// ---- The windows ----

void CheckerDetails::create() {
    m_list = std::make_unique<CMultiLineEditListCtrl>(m_services, m_lines);
    m_list->create(m_frame.handle(), IDC_DETAILS_LIST, kDetailsListName, kDetailsTitle);
    m_list->onUpdate([this] {
        m_frame.noteChanged(kView);
        m_line.update();
    });
    m_line.create(m_frame.handle(), IDC_DETAIL_LINE);
}

HeldView CheckerDetails::view() {
    return {m_list->handle(),          kDetailsTitle,
            kDetailsListName,          [this] { m_list->commands().run(kCustomizeCommand); },
            [this] { return note(); }, m_line.handle()};
}

void CheckerDetails::open() {
    m_list->access().setListName([this] {
        const std::string said = note();
        return fw::textOf(m_list->handle()) + (said.empty() ? "" : " - " + said);
    });
    m_list->setDetailColumns();
    m_list->commands().offerColumns(false, false);
    m_list->appearance().setBackground(detailsBackground());
    m_list->setEditRules({kAllowedInValues, {"E", "D"}});
    captionDetails(m_caption);
}

// Folds hide lines too, and are no news.
std::string CheckerDetails::note() {
    const RecordStore& lines = m_lines.rows();
    const std::string& work = m_list->work().note();
    const std::size_t filters = lines.filters().columns().size();
    if (filters == 0) return work;
    return summaryText({.rows = lines.rowCount(),
                        .records = lines.stored().size(),
                        .filters = filters,
                        .work = work});
}

void CheckerDetails::colorsChanged() {
    if (m_list != nullptr) m_list->appearance().setBackground(detailsBackground());
}

// ---- What the rules say ----

void CheckerDetails::emptyDetails() {
    m_line.valuesChanged();
    if (m_list != nullptr) m_list->empty();
}

// Filters belong to the details they were typed for.
void CheckerDetails::showDetails(std::vector<DetailGroup> groups, bool anotherChange) {
    if (m_list == nullptr) return;
    m_line.valuesChanged();
    if (anotherChange) m_list->resetFilters();
    m_list->replace(std::move(groups));
}

void CheckerDetails::editsSent() {
    m_line.valuesChanged();
    if (m_list != nullptr) m_list->editsSent();
}

void CheckerDetails::editsDropped() {
    m_line.valuesChanged();
    if (m_list != nullptr) m_list->editsDropped();
}

// The workbench says its first caption before the list has a window.
void CheckerDetails::captionDetails(const DetailsCaption& caption) {
    m_caption = caption;
    if (m_list == nullptr) return;
    m_list->painter().setEmptyText(caption.emptyText);
    m_list->setDimmed(caption.dimmed);
    std::string title = caption.title;
    if (!caption.neighbours.empty()) title += " - " + caption.neighbours;
    m_frame.setTitle(kView, title);
    SetWindowTextA(m_list->handle(), title.c_str());  // what screen readers call it
    m_news();
}

// The row shows what the update will send, not what was typed. A value that will not be sent stays
// as it was; a row without a field shows what was typed.
void CheckerDetails::takeEdit(const EndOfEdit& edit, const std::optional<std::string>& stored) {
    if (edit.column != "Value" || (!stored && edit.row.mnemonic != 0)) return;
    m_line.valuesChanged();
    const std::string before = std::exchange(edit.row.value, stored.value_or(edit.typed));
    if (!edit.row.edited) edit.row.received = before;
    edit.row.edited = stored.has_value();
}

bool CheckerDetails::editorKey(UINT key, bool repeated) {
    const bool editing = m_list->editing(GetFocus());
    if (!repeated) m_heldInEditor = editing;
    return editing ? m_list->editorKey(key, repeated) : repeated && m_heldInEditor;
}

}  // namespace mc
