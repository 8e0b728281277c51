// The workbench without its windows: the records, the link, the intake and the checker's decisions.
//
// The pane makes one when its dialog is initialised and closes it with its window; natively it is
// tested against the console's server. All on the user-interface thread.
#pragma once

#include <functional>

#include "details/model/intake.h"
#include "link/model/receiver.h"
#include "link/model/requests.h"
#include "link/model/server_link.h"
#include "workbench/model/decision_log.h"
#include "workbench/model/decisions.h"
#include "workbench/model/neighbours.h"
#include "workbench/model/press_plan.h"
#include "workbench/model/press_sight.h"
#include "workbench/model/records/pending_changes.h"
#include "workbench/model/shown_details.h"
#include "workbench/model/workbench_view.h"

namespace mc {

class Workbench final : public AnswerHandler, private IntakeListener {
public:
    // Opens the server link. Both must outlive the object.
    Workbench(Host& host, WorkbenchView& view);
    ~Workbench() { close(); }

    // Shows what the link could not have.
    void tellLinkFailures() { m_link.tellFailures(); }

    // Destroys all records, empties the details and closes the link, in that order, once. A
    // decision that is under way then, behind a message box, goes on without effect: nothing is
    // pending and nothing can be sent.
    void close();

    PendingChanges& changes() { return m_changes; }
    const PendingChanges& changes() const { return m_changes; }

    // What the checker decided in this session.
    DecisionLog& decisionLog() { return m_log; }

    int subscribe();
    int unsubscribe() { return m_link.unsubscribe(); }

    // Takes in a published message; null is ignored.
    void handlePublished(void* message);

    // Empties the details and asks for those of `change`, where its kind has any.
    void showDetails(PendingChange change);

    // The key of the change whose details are looked at.
    const std::optional<std::string>& shownKey() const { return m_details.key(); }

    // Does the same for the next pending change about the same as the one that is looked at, and
    // returns it; none, and nothing happens, when there is none or the edits stay.
    std::optional<PendingChange> showNeighbour();
    // Opens the details of the focused row, or of the next row below it whose decision was not sent
    // yet, and selects that row alone if it was not selected. Returns whether there is one, and
    // unsent edits were not kept for it.
    bool openNext();

    // The other halves of pairs that a press of Accept lacks, and selecting them too, those whose
    // rows are visible.
    std::vector<Slot> missingHalves() const;
    void selectHalves(const std::vector<Slot>& halves);

    // The checker's hand changed the selection. Details of a change that is not among the selected
    // do not stay beside them, unless they hold unsent edits: then they are dimmed.
    void selectionMade();
    // It did, and a text that is refused keeps the details until selectionMade().
    void selectionWaits();

    // The selection changed otherwise: rows went, or a filter hid some. Nothing is emptied.
    void selectionMoved();

    // What a press of the button would do now, with what is selected and typed now.
    PressPlan plan(PressButton button, const TypedValue& typed = {}) const {
        return planPress(button, m_changes.selectedRecords(), m_changes, edits(), typed);
    }

    // Whether the checker can have seen what Accept and Reject hit now.
    PressSight& sight() { return m_sight; }

    // The four buttons. `selected`, in row order, is what was selected at the press: a change that
    // goes while a box is open is not decided, and none is decided instead. Where edits are not
    // sent, all but Update ask first; so do showDetails() and dropEdits(). Accept and Reject
    // ask before they decide otherwise than a decision that was sent, whose outcome is awaited.
    void accept(SelectedRecords selected);
    // An empty reason rejects nothing.
    using AskReason = std::function<std::string()>;
    void reject(SelectedRecords selected, const AskReason& askReason);
    void update();
    void recover();

    // The edits that were not sent are given up.
    void dropEdits();

    // A value of the visible limits was typed in, or chosen: it waits for the update, instead of
    // an earlier one of the same field. Returns the text that waits. None, and nothing is kept,
    // when the row has no field (0), when no details are visible, or for a number that is too
    // large.
    std::optional<std::string> valueEdited(int mnemonic, const std::string& typed);
    std::optional<std::string> choiceMade(int mnemonic, const std::string& chosen);

    void details(DetailKind kind, const FieldReader& answer) override;
    void detailsRefused(DetailKind kind, const FieldReader& answer) override;
    void recovered(const FieldReader& answer) override;

private:
    void publishedAgain(const std::string& key) override;
    void changeEnded(const std::string& key) override;
    void outcomeCame(const std::string& key, std::string_view status) override;
    void noteTried(const TriedRequest& tried);

    void take(const FieldReader& message, Intake::Origin origin);
    void followSelection();
    bool unselected() const;
    void emptyDetails();
    void askForDetails();
    bool mayLeaveEdits(const std::string& question);
    bool mayDecideAgain(const PressPlan& plan);
    const DetailsOnShow& edits() const { return m_details.asked(); }
    void caption();
    void neighboursMoved();
    bool mayModify() const;
    std::optional<std::string> keepEdit(int mnemonic, std::optional<std::string> value);

    Host& m_host;
    WorkbenchView& m_view;
    PendingChanges m_changes;
    DecisionLog m_log;
    ShownDetails m_details;
    SeenFields m_seenFields;
    PressSight m_sight;
    std::string m_neighbours;  // as they were said last
    Intake m_intake;
    serverLink m_link;
    Requests m_requests;
};

}  // namespace mc
