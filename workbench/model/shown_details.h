// Whose details the checker looks at, what was asked of the server for them, and what the details
// list says about itself.
//
// Several detail requests can be unanswered at a time, as the checker goes from change to change.
// An answer is for the request whose key it names; one without a key is for the oldest unanswered
// request of its kind.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "link/model/message.h"
#include "link/model/pending_record.h"
#include "link/model/requests.h"
#include "workbench/model/workbench_view.h"

namespace mc {

class ShownDetails {
public:
    // The key last asked for and the edits of its details; what the requests read and write.
    DetailsOnShow& asked() { return m_asked; }
    const DetailsOnShow& asked() const { return m_asked; }

    // The key of the change that the details are about; none when there is none.
    const std::optional<std::string>& key() const { return m_key; }
    DetailKind kind() const { return m_kind; }

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
    bool awaited() const;

    // An answer came: whether it is for the details of the change that is looked at.
    bool takes(DetailKind kind, const std::optional<std::string_view>& key);

    void refused(const AnswerError& error);

    // The groups of an answer are about to be shown: puts unsent edits into their rows, and keeps
    // what the edits that follow are typed over. Returns whether the details shown last belonged
    // to another change.
    bool shown(std::vector<DetailGroup>& groups);

    // ---- Edits ----

    std::size_t editCount() const { return m_asked.modifiedValues.size(); }
    void keepEdit(int mnemonic, std::string value);
    void editsEnded();
    std::string editsText() const;  // "2 edited values of Client - C1, RMS Limits, 1007"

    // Other changes are selected than the one that is looked at, or no longer. Returns whether
    // that is new.
    bool setDimmed(bool dimmed) { return std::exchange(m_dimmed, dimmed) != dimmed; }

    DetailsCaption caption() const;

    // Whether the answer shown last differs from the first one since the change was opened.
    bool changedSince() const { return m_changedSince; }

private:
    enum class State { none, waiting, shown, withoutDetails, notSent, refused };
    struct Request {
        std::string key;
        DetailKind kind;
        bool operator==(const Request&) const = default;
    };

    void name(const sMakeCheckStruct& record);
    void putEdits(std::vector<DetailGroup>& groups);
    std::string emptyText() const;

    DetailsOnShow m_asked;
    std::optional<std::string> m_key;
    std::string m_name;
    DetailKind m_kind = DetailKind::none;
    State m_state = State::none;
    std::string m_error;
    std::string m_news;                 // what happened to the details since they were opened
    std::vector<Request> m_unanswered;  // oldest first
    bool m_askAgain = false;
    bool m_dimmed = false;
    bool m_changedSince = false;
    std::optional<std::string> m_shownKey;  // of the details shown last
    std::size_t m_print = 0;  // of their texts when they were opened; 0: not shown yet
    std::map<int, std::string> m_received;   // by field: the values of the last answer
    std::map<int, std::string> m_typedOver;  // by edited field: the value at the time
};

}  // namespace mc
