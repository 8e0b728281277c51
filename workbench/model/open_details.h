// The details that are open, those of the change that the checker looks at: they are asked for,
// shown, captioned and edited here, and emptied when the change or the checker's eye goes
// elsewhere.
#pragma once

#include <optional>
#include <string>

#include "link/model/host.h"
#include "link/model/requests.h"
#include "workbench/model/details_view.h"
#include "workbench/model/neighbours.h"
#include "workbench/model/press_sight.h"
#include "workbench/model/shown_details.h"

namespace mc {

class OpenDetails {
public:
    // All must outlive the object; the requests may be made after it.
    OpenDetails(Host& host, DetailsView& view, PendingChanges& changes, Requests& requests,
                PressSight& sight)
        : m_host(host), m_view(view), m_changes(changes), m_requests(requests), m_sight(sight) {}

    // The key last asked for and the edits of its details; what the requests read and write.
    AskedDetails& asked() { return m_shown.asked(); }

    // The key of the change whose details are looked at.
    const std::optional<std::string>& key() const { return m_shown.key(); }

    // Empties the details and asks for those of `change`, where its kind has any. Where edits are
    // not sent, asks first.
    void open(PendingChange change);

    // Does the same for the next pending change about the same as the one that is looked at, and
    // returns it; none, and nothing happens, when there is none or the edits stay.
    std::optional<PendingChange> openNeighbour();

    void empty();

    // Shows whose details these are; every other call does it where that changes.
    void caption();

    // ---- What comes from the server ----

    void came(DetailKind kind, const FieldReader& answer);
    void refused(DetailKind kind, const FieldReader& answer);
    void publishedAgain(const std::string& key);

    // Something of a change did, by a message: presses that hit it may come too soon.
    void moved(const std::string& key);
    void changeEnded(const std::string& key);

    // A change came, changed or went: it may be about what is looked at.
    void neighboursMoved();

    // ---- The selection ----

    // The hand changed it. Details of a change that is not among the selected do not stay beside
    // them, unless they hold unsent edits: then they are dimmed.
    void followSelection();

    // It changed otherwise: rows went, or a filter hid some. Nothing is emptied.
    void selectionMoved();

    // ---- Edits ----

    // A value of the visible limits was typed in, or chosen: it waits for the update, instead of
    // an earlier one of the same field. Returns the text that waits. None, and nothing is kept,
    // when the row has no field (0), when no details are visible, or for a number that is too
    // large.
    std::optional<std::string> valueEdited(int mnemonic, const std::string& typed);
    std::optional<std::string> choiceMade(int mnemonic, const std::string& chosen);

    // Asks whether edits that were not sent may be left behind. True when there are none.
    bool mayLeaveEdits(const std::string& question);

    // The edits have left, or are given up, where the checker says so.
    void editsSent();
    void dropEdits();

private:
    void ask();
    bool unselected() const;
    bool mayModify() const;
    std::optional<std::string> keepEdit(int mnemonic, std::optional<std::string> value);

    Host& m_host;
    DetailsView& m_view;
    PendingChanges& m_changes;
    Requests& m_requests;
    PressSight& m_sight;
    ShownDetails m_shown;
    SeenFields m_seenFields;
    std::string m_neighbours;  // as they were said last
};

}  // namespace mc
