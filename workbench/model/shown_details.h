// Whose details the checker looks at, what was asked of the server for them, and what the details
// list says about itself.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "link/model/message.h"
#include "link/model/pending_record.h"
#include "link/model/requests.h"
#include "workbench/model/details_view.h"
#include "workbench/model/shown_answers.h"
#include "workbench/model/unanswered_requests.h"
#include "workbench/model/unsent_edits.h"

namespace mc {

class ShownDetails {
public:
    // The key last asked for and the edits of its details; what the requests read and write.
    AskedDetails& asked() { return m_asked; }
    const AskedDetails& asked() const { return m_asked; }

    // The key of the change that the details are about; none when there is none.
    const std::optional<std::string>& key() const { return m_about.key; }
    DetailKind kind() const { return m_about.kind; }

    // The checker opens a change. The details before it, edits included, are forgotten.
    void open(const sMakeCheckStruct& record);

    // No change is looked at any more; answers that are still to come stay expected.
    void forget();

    // A request for the change's details is about to leave, or could not be sent.
    void requested();
    void notSent();

    // The change was published again and its record changed. Returns whether its details are to be
    // asked for now; while an answer is awaited they are asked for when it has come (askAgain()).
    bool publishedAgain(const sMakeCheckStruct& record);

    // How a change is called: its entity, kind and key.
    static std::string nameOf(const sMakeCheckStruct& record);
    bool askAgain() const { return m_askAgain && !awaited(); }

    // A request for the change that is looked at is unanswered.
    bool awaited() const { return m_unanswered.contains(m_about.key); }

    // An answer came: whether it is for the details of the change that is looked at.
    bool takes(DetailKind kind, const std::optional<std::string_view>& key);

    // It names the change, so it is the answer to earlier requests for it as well. One that names
    // none is for one request only: the next one would be taken for another change's.
    void answered() { m_unanswered.dropAllOf(*m_about.key); }

    void refused(const AnswerError& error);

    // The groups of an answer are about to be shown: puts unsent edits into their rows, and keeps
    // what the edits that follow are typed over. Returns whether the details shown last belonged
    // to another change.
    bool shown(std::vector<DetailGroup>& groups);

    // ---- Edits ----

    UnsentEdits& edits() { return m_edits; }
    std::string editsText() const;  // "2 edited values of Client - C1, RMS Limits, 1007"

    // Other changes are selected than the one that is looked at, or no longer. Returns whether
    // that is new.
    bool setDimmed(bool dimmed) { return std::exchange(m_dimmed, dimmed) != dimmed; }

    DetailsCaption caption() const;

    // Whether the answer shown now differs from the one that was shown before it.
    bool differsFromLast() const { return m_answers.differsFromLast(); }

private:
    struct About {  // the change that is looked at
        std::optional<std::string> key;
        std::string name;
        DetailKind kind = DetailKind::none;
    };
    enum class State { none, waiting, shown, withoutDetails, notSent, refused };

    void name(const sMakeCheckStruct& record);
    std::string emptyText() const;

    AskedDetails m_asked;
    UnsentEdits m_edits{m_asked.modifiedValues};
    About m_about;
    State m_state = State::none;
    std::string m_error;
    std::string m_news;  // what happened to the details since they were opened
    UnansweredRequests m_unanswered;
    bool m_askAgain = false;
    bool m_dimmed = false;
    ShownAnswers m_answers;
};

}  // namespace mc
