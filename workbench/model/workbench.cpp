#include "workbench/model/workbench.h"

#include <ctime>
#include <utility>

#include "details/model/details_builders.h"
#include "details/model/limit_edits.h"
#include "link/model/functionality.h"
#include "link/model/mnemonics.h"
#include "listctrl/model/table/selection_rules.h"
#include "workbench/model/press_line.h"

namespace mc {

Workbench::Workbench(Host& host, WorkbenchView& view)
    : m_host(host),
      m_view(view),
      m_changes(view),
      m_intake(host, m_changes, *this),
      m_link(host, *this),
      m_requests(host, m_link, m_details.asked()) {
    m_requests.setTriedListener([this](const TriedRequest& tried) { noteTried(tried); });
    caption();
}

void Workbench::close() {
    if (m_link.closed()) return;
    m_changes.clearAllRecords();
    emptyDetails();
    m_link.close();
}

void Workbench::handlePublished(void* message) {
    if (message == nullptr || m_link.closed()) return;
    take(FieldReader(message), Intake::Origin::published);
}

// No hand changes the selection while a message is taken in.
void Workbench::take(const FieldReader& message, Intake::Origin origin) {
    const auto selection = m_changes.rows().selection().revision();
    m_intake.handle(message, origin);
    if (m_changes.rows().selection().revision() != selection) m_sight.moved();
    neighboursMoved();
}

int Workbench::subscribe() {
    const int result = m_link.subscribe();
    if (m_link.subscribed()) m_changes.states().subscribed();
    return result;
}

// ---- Details ----

// The one way in which details leave the screen: whose they were is forgotten with them, and so are
// the edits that were not sent. An edit never outlives the sight of its value.
void Workbench::emptyDetails() {
    m_details.forget();
    m_changes.states().opened(kNoSlot);
    m_view.emptyDetails();
    caption();
}

void Workbench::showDetails(PendingChange change) {
    const PendingChanges::Hold hold(m_changes);
    if (m_details.editCount() != 0) {
        if (!mayLeaveEdits("Drop them and open " + ShownDetails::nameOf(change) + "?")) return;
        auto now = m_changes.current(change);
        if (!now) return;
        change = std::move(*now);
    }
    m_details.open(change);
    m_changes.states().opened(change.slot);
    m_details.setDimmed(unselected());
    m_view.emptyDetails();
    caption();
    if (m_details.kind() != DetailKind::none)
        askForDetails();
    else
        m_changes.states().lookedAt(change.slot);
}

std::optional<PendingChange> Workbench::showNeighbour() {
    if (!m_details.key()) return std::nullopt;
    const auto next = nextNeighbour(m_changes, *m_details.key());
    if (!next) return std::nullopt;
    showDetails(*next);
    return m_details.key() == next->key ? next : std::nullopt;
}

void Workbench::caption() {
    const auto& key = m_details.key();
    m_neighbours = key ? alsoPending(m_changes, m_seenFields, *key) : "";
    DetailsCaption now = m_details.caption();
    now.neighbours = m_neighbours;
    m_view.captionDetails(now);
}

// A change came, changed or went: it may be about what is looked at.
void Workbench::neighboursMoved() {
    if (m_link.closed() || !m_details.key()) return;
    if (alsoPending(m_changes, m_seenFields, *m_details.key()) != m_neighbours) caption();
}

void Workbench::askForDetails() {
    m_details.requested();
    caption();
    const std::string key = m_details.key().value_or("");
    if (m_requests.requestDetails(m_details.kind(), key) == 0) m_details.notSent();
    caption();
}

// Edits that were not sent stay, in the rows of the new answer.
void Workbench::details(DetailKind kind, const FieldReader& answer) {
    if (m_link.closed() || !m_details.takes(kind, answer.text(MNM_AUTHORIZATION_KEY))) return;
    std::vector<DetailGroup> groups = kind == DetailKind::user ? BuildUserDetails(answer)
                                      : kind == DetailKind::account
                                          ? BuildClientDetails(answer)
                                          : BuildLimitsDetails(answer, mayModify());
    const bool another = m_details.shown(groups);
    if (m_details.key()) m_seenFields.seen(*m_details.key(), groups);
    if (!another && m_details.changedSince()) m_sight.moved();
    m_view.showDetails(std::move(groups), another);
    const Slot slot = m_changes.states().shown();
    if (slot != kNoSlot && !m_details.askAgain()) m_changes.states().lookedAt(slot);
    caption();
    if (m_details.askAgain()) askForDetails();
}

void Workbench::detailsRefused(DetailKind kind, const FieldReader& answer) {
    if (m_link.closed() || !m_details.takes(kind, answer.text(MNM_AUTHORIZATION_KEY))) return;
    if (m_details.awaited()) return;
    m_details.refused(answerError(answer).value_or(AnswerError{}));
    if (m_details.editCount() == 0) m_view.emptyDetails();
    caption();
}

void Workbench::recovered(const FieldReader& answer) {
    if (!m_link.closed()) take(answer, Intake::Origin::recovered);
}

void Workbench::publishedAgain(const std::string& key) {
    if (m_changes.selected(key)) m_sight.moved();
    if (m_details.key() != key) return;
    const auto change = m_changes.findRecord(key);
    if (!change) return;
    const DetailKind before = m_details.kind();
    const bool ask = m_details.publishedAgain(*change);
    if (m_details.kind() != before) return emptyDetails();  // it is another change by now
    if (ask) askForDetails();
    caption();
}

void Workbench::changeEnded(const std::string& key) {
    m_seenFields.ended(key);
    if (m_details.key() == key)
        emptyDetails();
    else
        selectionMoved();
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

// Whether other changes are selected than the one that is looked at.
bool Workbench::unselected() const {
    return m_details.key() && m_changes.rows().selection().count() != 0 &&
           !m_changes.selected(*m_details.key());
}

void Workbench::selectionMade() {
    m_sight.selected(m_changes.rows().selection().count() == 1);
    followSelection();
}

void Workbench::selectionWaits() {
    m_sight.selected(false);
    selectionMoved();
}

// Details of a change that is not among the selected stay only with edits, and dimmed.
void Workbench::followSelection() {
    if (unselected() && m_details.editCount() == 0) return emptyDetails();
    selectionMoved();
}

void Workbench::selectionMoved() {
    if (m_details.setDimmed(unselected())) caption();
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
    const auto change = m_changes.recordAt(row);
    if (!change) return false;
    showDetails(*change);
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

std::vector<Slot> Workbench::missingHalves() const {
    std::vector<Slot> missing;
    const PressPlan now = plan(PressButton::accept);
    for (const auto* halves : {&now.users, &now.clients})
        for (const Slot half : *halves)
            if (const Slot other = m_changes.otherHalf(half); other != kNoSlot)
                missing.push_back(other);
    return missing;
}

void Workbench::selectHalves(const std::vector<Slot>& halves) {
    for (const Slot half : halves)
        if (const auto row = m_changes.rows().rowOf(half))
            m_changes.rows().selection().select(*row, true);
    selectionMade();
    m_view.rowsChanged();
}

// ---- Decisions ----

// Asks whether edits that were not sent may be left behind. True when there are none.
bool Workbench::mayLeaveEdits(const std::string& question) {
    if (m_details.editCount() == 0) return true;
    const bool one = m_details.editCount() == 1;
    return m_host.confirm(m_details.editsText() + (one ? " has" : " have") + " not been sent.\n\n" +
                          question);
}

// The opposite of a decision whose outcome is awaited may be a slip.
bool Workbench::mayDecideAgain(const PressPlan& plan) {
    if (plan.opposite == 0) return true;
    const bool accepts = plan.button == PressButton::accept;
    const bool one = plan.leaving.size() == 1;
    const auto change = m_changes.recordIn(plan.leaving.front());
    return m_host.confirm(
        (one && change ? pressName(*change) + " was "
                       : std::to_string(plan.opposite) + " of these changes were ") +
        (accepts ? "rejected" : "accepted") + " and the outcome is awaited.\n\n" +
        (accepts ? "Accept" : "Reject") + (one ? " it all the same?" : " them all the same?"));
}

// A question dispatches messages: what is executed is the plan made after it.
void Workbench::accept(SelectedRecords selected) {
    const PendingChanges::Hold hold(m_changes);
    const auto plan = [&] { return planPress(PressButton::accept, selected, m_changes, edits()); };
    if (!selected.empty() && mayLeaveEdits("Accept without sending?") && mayDecideAgain(plan()))
        acceptSelected(plan(), m_changes, m_requests, m_host);
}

void Workbench::reject(SelectedRecords selected, const AskReason& askReason) {
    const PendingChanges::Hold hold(m_changes);
    const PressPlan plan = planPress(PressButton::reject, selected, m_changes, edits());
    if ((selected.empty() || mayLeaveEdits("Reject without sending?")) && mayDecideAgain(plan))
        rejectSelected(plan, askReason(), m_changes, m_requests);
}

void Workbench::update() {
    const Slot slot = m_changes.states().shown();
    if (m_requests.sendLimitsUpdate() == 0) return;
    if (slot != kNoSlot) m_changes.states().sent(slot, SentDecision::update);
    m_details.editsEnded();
    m_view.editsSent();
    caption();
    followSelection();
}

void Workbench::recover() {
    if (!mayLeaveEdits("Recover and drop them?")) return;
    emptyDetails();
    if (m_requests.sendRecovery() != 0) m_changes.states().recoverSent();
}

void Workbench::dropEdits() {
    if (m_details.editCount() == 0 || !mayLeaveEdits("Drop them?")) return;
    m_details.editsEnded();
    m_view.editsDropped();
    caption();
    followSelection();
}

// ---- Edits ----

std::optional<std::string> Workbench::valueEdited(int mnemonic, const std::string& typed) {
    return keepEdit(mnemonic, spellLimit(mnemonic, typed));
}

std::optional<std::string> Workbench::choiceMade(int mnemonic, const std::string& chosen) {
    return keepEdit(mnemonic, chosen);
}

std::optional<std::string> Workbench::keepEdit(int mnemonic, std::optional<std::string> value) {
    if (mnemonic == 0 || !m_details.asked().key || !value) return std::nullopt;
    m_details.keepEdit(mnemonic, *value);
    caption();
    return value;
}

bool Workbench::mayModify() const {
    auto* const holdsRight = m_host.modifyRightService();
    return holdsRight != nullptr && holdsRight() != 0;
}

}  // namespace mc
