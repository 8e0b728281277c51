// The workbench without its windows: the records, the link, the intake and the checker's decisions.
//
// The pane makes one when its dialog is initialised and closes it with its window; natively it is
// tested against the console's server. All on the user-interface thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "details/model/intake.h"
#include "link/model/receiver.h"
#include "link/model/requests.h"
#include "link/model/server_link.h"
#include "workbench/model/decision_log.h"
#include "workbench/model/open_details.h"
#include "workbench/model/presses.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

class Workbench final : private AnswerHandler, private IntakeListener {
public:
    // Opens the server link. All must outlive the object; the views may be one.
    Workbench(Host& host, RecordsView& records, DetailsView& details);
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

    // The details that are looked at, and the four buttons.
    OpenDetails& details() { return m_details; }
    Presses& presses() { return m_presses; }

    // Opens the details of the focused row, or of the next row below it whose decision was not sent
    // yet, and selects that row alone if it was not selected. Returns whether there is one, and
    // unsent edits were not kept for it.
    bool openNext();

    // Selects the other halves of pairs too, those whose rows are visible.
    void selectHalves(const std::vector<Slot>& halves);

    // The checker's hand changed the selection.
    void selectionMade();
    // It did, and a text that is refused keeps the details until selectionMade().
    void selectionWaits();

    // Whether the checker can have seen what Accept and Reject hit now.
    PressSight& sight() { return m_sight; }

private:
    void detailsCame(DetailKind kind, const FieldReader& answer) override;
    void detailsRefused(DetailKind kind, const FieldReader& answer) override;
    void recovered(const FieldReader& answer) override;
    void publishedAgain(const std::string& key) override;
    void rewritten(const std::string& key) override { m_details.moved(key); }
    void changeEnded(const std::string& key) override { m_details.changeEnded(key); }
    void outcomeCame(const std::string& key, std::string_view status) override;
    void noteTried(const TriedRequest& tried);

    void take(const FieldReader& message, Intake::Origin origin);

    RecordsView& m_view;
    PendingChanges m_changes;
    DecisionLog m_log;
    PressSight m_sight;
    OpenDetails m_details;
    Intake m_intake;
    serverLink m_link;
    Requests m_requests;
    Presses m_presses;
};

}  // namespace mc
