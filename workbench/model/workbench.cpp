#include "workbench/model/workbench.h"

#include <ctime>
#include <new>
#include <utility>

#include "listctrl/model/table/selection_rules.h"

namespace mc {

Workbench::Workbench(Host& host, RecordsView& records, DetailsView& details)
    : m_view(records),
      m_changes(records),
      m_details(host, details, m_changes, m_requests, m_sight),
      m_intake(host, m_changes, *this),
      m_link(host, *this),
      m_requests(host, m_link, m_details.asked()),
      m_presses(host, m_changes, m_requests, m_details, m_sight) {
    m_requests.setTriedListener([this](const TriedRequest& tried) { noteTried(tried); });
    m_details.caption();
}

void Workbench::close() {
    if (m_link.closed()) return;
    try {
        m_changes.clearAllRecords();
        m_details.empty();
    } catch (const std::bad_alloc&) {  // nobody sees the caption any more
    }
    m_link.close();
}

void Workbench::handlePublished(void* message) {
    if (message == nullptr || m_link.closed()) return;
    take(FieldReader(message), Intake::Origin::published);
}

void Workbench::recovered(const FieldReader& answer) {
    if (!m_link.closed()) take(answer, Intake::Origin::recovered);
}

// No hand changes the selection while a message is taken in.
void Workbench::take(const FieldReader& message, Intake::Origin origin) {
    const auto selection = m_changes.rows().selection().revision();
    m_intake.handle(message, origin);
    if (m_changes.rows().selection().revision() != selection)
        m_sight.moved(PressSight::Hits::selection);
    if (!m_link.closed()) m_details.neighboursMoved();
}

int Workbench::subscribe() {
    const int result = m_link.subscribe();
    if (m_link.subscribed()) m_changes.states().subscribed();
    return result;
}

void Workbench::detailsCame(DetailKind kind, const FieldReader& answer) {
    if (!m_link.closed()) m_details.came(kind, answer);
}

void Workbench::detailsRefused(DetailKind kind, const FieldReader& answer) {
    if (!m_link.closed()) m_details.refused(kind, answer);
}

void Workbench::publishedAgain(const std::string& key) {
    m_details.moved(key);
    m_details.publishedAgain(key);
}

void Workbench::outcomeCame(const std::string& key, std::string_view status) {
    m_log.outcomeCame(key, status, std::time(nullptr));
}

// An update names its change by key only; one that went meanwhile is noted without its texts.
void Workbench::noteTried(const TriedRequest& tried) {
    sMakeCheckStruct change;
    change.key = tried.key;
    if (tried.change == nullptr)
        if (auto listed = m_changes.findRecord(tried.key)) change = std::move(*listed);
    m_log.note(tried, tried.change != nullptr ? *tried.change : change, std::time(nullptr));
}

void Workbench::selectionMade() {
    m_sight.selected();
    m_details.followSelection();
}

void Workbench::selectionWaits() {
    m_sight.selected();
    m_details.selectionMoved();
}

// ---- The next row, and the other half of a pair ----

bool Workbench::openNext() {
    const PendingChanges::Hold hold(m_changes);
    RecordStore& rows = m_changes.rows();
    const auto sent = [&](std::size_t row) {
        return m_changes.states().of(rows.slotAt(row)).sent != SentDecision::none;
    };
    std::size_t row = rows.selection().focusedRow().value_or(0);
    while (row < rows.rowCount() && sent(row)) ++row;
    const auto change = m_changes.recordIn(rows.slotAt(row));
    if (!change) return false;
    m_details.open(*change);
    const auto now = rows.rowOf(change->slot);
    if (m_details.key() != change->key || !now) return false;
    if (rows.selection().isSelected(change->slot))
        rows.selection().setFocus(*now);
    else
        SelectionRules(rows).goTo(*now);
    selectionMade();
    m_view.rowsChanged();
    return true;
}

void Workbench::selectHalves(const std::vector<Slot>& halves) {
    for (const Slot half : halves)
        if (const auto row = m_changes.rows().rowOf(half))
            m_changes.rows().selection().select(*row, true);
    selectionMade();
    m_view.rowsChanged();
}

}  // namespace mc
