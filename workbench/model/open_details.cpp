#include "workbench/model/open_details.h"

#include <utility>

#include "details/model/details_builders.h"
#include "details/model/limit_edits.h"
#include "link/model/mnemonics.h"

namespace mc {

// The one way in which details leave the screen: whose they were is forgotten with them, and so are
// the edits that were not sent. An edit never outlives the sight of its value.
void OpenDetails::empty() {
    m_shown.forget();
    m_changes.states().opened(kNoSlot);
    m_view.emptyDetails();
    caption();
}

void OpenDetails::open(PendingChange change) {
    const PendingChanges::Hold hold(m_changes);
    if (m_shown.edits().count() != 0) {
        if (!mayLeaveEdits("Drop them and open " + ShownDetails::nameOf(change) + "?")) return;
        auto now = m_changes.recordIn(change.slot);
        if (!now) return;
        change = std::move(*now);
    }
    m_view.emptyDetails();  // first: rows are never visible beside another change's name
    m_shown.open(change);
    m_changes.states().opened(change.slot);
    m_shown.setDimmed(unselected());
    caption();
    if (m_shown.kind() != DetailKind::none)
        ask();
    else
        m_changes.states().lookedAt(change.slot);
}

std::optional<PendingChange> OpenDetails::openNeighbour() {
    if (!m_shown.key()) return std::nullopt;
    const auto next = nextNeighbour(m_changes, *m_shown.key());
    if (!next) return std::nullopt;
    open(*next);
    return m_shown.key() == next->key ? next : std::nullopt;
}

void OpenDetails::caption() {
    const auto& key = m_shown.key();
    m_neighbours = key ? alsoPending(m_changes, m_seenFields, *key) : "";
    DetailsCaption now = m_shown.caption();
    now.neighbours = m_neighbours;
    m_view.captionDetails(now);
}

void OpenDetails::neighboursMoved() {
    if (!m_shown.key()) return;
    if (alsoPending(m_changes, m_seenFields, *m_shown.key()) != m_neighbours) caption();
}

void OpenDetails::ask() {
    m_shown.requested();
    try {
        caption();
        const std::string key = m_shown.key().value_or("");
        if (m_requests.requestDetails(m_shown.kind(), key) == 0) m_shown.notSent();
    } catch (...) {
        m_shown.notSent();
        throw;
    }
    caption();
}

// Edits that were not sent stay, in the rows of the new answer.
void OpenDetails::came(DetailKind kind, const FieldReader& answer) {
    const auto key = answer.text(MNM_AUTHORIZATION_KEY);
    if (!m_shown.takes(kind, key)) return;
    if (key) m_shown.answered();
    std::vector<DetailGroup> groups = kind == DetailKind::user ? BuildUserDetails(answer)
                                      : kind == DetailKind::account
                                          ? BuildClientDetails(answer)
                                          : BuildLimitsDetails(answer, mayModify());
    try {
        const bool another = m_shown.shown(groups);
        if (m_shown.key()) m_seenFields.seen(*m_shown.key(), groups);
        if (!another && m_shown.differsFromLast()) {
            m_changes.states().detailsDiffer(m_changes.states().shown());
            moved(*m_shown.key());
        }
        m_view.showDetails(std::move(groups), another);
    } catch (...) {
        empty();  // edits go with the rows that hold them
        throw;
    }
    const Slot slot = m_changes.states().shown();
    if (slot != kNoSlot && !m_shown.askAgain()) m_changes.states().lookedAt(slot);
    caption();
    if (m_shown.askAgain()) ask();
}

void OpenDetails::refused(DetailKind kind, const FieldReader& answer) {
    if (!m_shown.takes(kind, answer.text(MNM_AUTHORIZATION_KEY))) return;
    if (m_shown.awaited()) return;
    m_shown.refused(answerError(answer).value_or(AnswerError{}));
    if (m_shown.edits().count() == 0) m_view.emptyDetails();
    caption();
}

void OpenDetails::moved(const std::string& key) {
    if (m_changes.selected(key)) m_sight.moved(PressSight::Hits::selection);
    if (m_shown.key() == key) m_sight.moved(PressSight::Hits::details);
}

void OpenDetails::publishedAgain(const std::string& key) {
    if (m_shown.key() != key) return;
    const auto change = m_changes.findRecord(key);
    if (!change) return;
    const DetailKind before = m_shown.kind();
    const bool now = m_shown.publishedAgain(*change);
    if (m_shown.kind() != before) return empty();  // it is another change by now
    if (now) ask();
    caption();
}

void OpenDetails::changeEnded(const std::string& key) {
    m_seenFields.ended(key);
    if (m_shown.key() == key)
        empty();
    else
        selectionMoved();
}

// ---- The selection ----

// Whether other changes are selected than the one that is looked at.
bool OpenDetails::unselected() const {
    return m_shown.key() && m_changes.rows().selection().count() != 0 &&
           !m_changes.selected(*m_shown.key());
}

void OpenDetails::followSelection() {
    if (unselected() && m_shown.edits().count() == 0) return empty();
    selectionMoved();
}

void OpenDetails::selectionMoved() {
    if (m_shown.setDimmed(unselected())) caption();
}

// ---- Edits ----

bool OpenDetails::mayLeaveEdits(const std::string& question) {
    if (m_shown.edits().count() == 0) return true;
    const bool one = m_shown.edits().count() == 1;
    return m_host.confirm(m_shown.editsText() + (one ? " has" : " have") + " not been sent.\n\n" +
                          question);
}

void OpenDetails::editsSent() {
    m_shown.edits().end();
    m_view.editsSent();
    caption();
    followSelection();
}

void OpenDetails::dropEdits() {
    if (m_shown.edits().count() == 0 || !mayLeaveEdits("Drop them?")) return;
    m_shown.edits().end();
    m_view.editsDropped();
    caption();
    followSelection();
}

std::optional<std::string> OpenDetails::valueEdited(int mnemonic, const std::string& typed) {
    return keepEdit(mnemonic, spellLimit(mnemonic, typed));
}

std::optional<std::string> OpenDetails::choiceMade(int mnemonic, const std::string& chosen) {
    return keepEdit(mnemonic, chosen);
}

std::optional<std::string> OpenDetails::keepEdit(int mnemonic, std::optional<std::string> value) {
    if (mnemonic == 0 || !m_shown.asked().key || !value) return std::nullopt;
    m_shown.edits().keep(mnemonic, *value);
    caption();
    return value;
}

bool OpenDetails::mayModify() const {
    auto* const holdsRight = m_host.modifyRightService();
    return holdsRight != nullptr && holdsRight() != 0;
}

}  // namespace mc
