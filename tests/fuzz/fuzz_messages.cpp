// A workbench under arbitrary messages: publications and answers, in any order with the checker's
// presses, failing calls, changing rights, and messages that come in behind a message box.
//
// The input is a program: one byte chooses the operation, further ones its details. After each
// operation the workbench must be consistent.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "tests/fuzz/detail_fields.h"
#include "tests/fuzz/input.h"
#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "tests/unit/recorders.h"
#include "workbench/model/records/main_list.h"
#include "workbench/model/workbench.h"

using namespace mc;

namespace {

constexpr std::array kStatuses{"auth pending", "auth pending", "auth pending", "accepted",
                               "rejected",     "Accepted",     "accepted ",    ""};
constexpr std::array kKeys{"1", "2", "3", "4", "5", "6", "7", "1001", ""};
constexpr std::array kWords{"339", "340",     "353",     "354",   "360", "365",
                            "366", "U1",      "U2",      "U1 ",   "",    "INVESTOR_CLIENT",
                            "17",  "CHECK01", "MAKER01", "RETAIL"};
constexpr std::array kRequests{"om_get_auth_limits_details", "om_get_auth_user_details",
                               "om_get_auth_account_details", "om_get_functionality_details",
                               "om_authenticate_functionality"};
constexpr auto kMnemonics = listOf(
    MNM_REQUEST_NAME, MNM_STATUS, MNM_USER, MNM_ERROR, MNM_ANSWERED_REQUEST, MNM_AUTHORIZATION_KEY,
    MNM_ACCOUNT_ID, MNM_TYPE, MNM_PUBLICATION_STATUS, MNM_REQUESTING_USER, MNM_FUNCTIONALITY,
    MNM_ACCOUNT_GROUP, MNM_BRANCH, MNM_BROKER, MNM_GROUPWISE_VALIDATION);

class Session {
public:
    Session(const std::uint8_t* data, std::size_t size) : m_input(data, size) {}

    void run() {
        m_host.control().sending = [this](const SentMessage& fields) { checkSent(fields); };
        while (!m_input.empty()) {
            step();
            otp_fail_call(0);
            check();
        }
    }

private:
    std::optional<std::string> text() {
        switch (m_input.below(8)) {
            case 0:
                return m_input.bytes(m_input.below(20));
            case 1:
                return std::string(40 * m_input.below(256), 'x');
            case 2:
                return std::nullopt;
            default:
                return m_input.oneOf(kWords);
        }
    }

    void addFields(FieldTexts& fields) {
        for (std::size_t count = m_input.below(12); count > 0; --count)
            fields.push_back({kMnemonics[m_input.below(std::size(kMnemonics))], text()});
    }

    void publish() {
        FieldTexts fields;
        if (m_input.below(8) != 0) {
            fields = {{MNM_PUBLICATION_STATUS, m_input.oneOf(kStatuses)},
                      {MNM_AUTHORIZATION_KEY, m_input.oneOf(kKeys)},
                      {MNM_FUNCTIONALITY, m_input.oneOf(kWords)},
                      {MNM_TYPE, m_input.below(2) == 0 ? "INVESTOR_CLIENT" : "RETAIL"},
                      {MNM_USER, m_input.oneOf(kWords)}};
        }
        addFields(fields);
        const auto message = makeMessage(fields);
        ++m_messages;
        m_workbench.handlePublished(message.handle());
    }

    void answer() {
        FieldTexts fields{{MNM_ANSWERED_REQUEST, m_input.oneOf(kRequests)}};
        if (m_input.below(2) == 0) fields.push_back({MNM_PUBLICATION_STATUS, "auth pending"});
        addFields(fields);
        deliver(fields);
    }
    void deliver(const FieldTexts& answer) {
        const auto message = makeMessage(answer);
        ++m_messages;
        m_host.control().receiver->onMessage(0, 0, message.handle(), nullptr);
    }

    // An answer to the change that is shown, or to any: its rows are what an edit may belong to.
    void answerDetails() {
        FieldTexts fields{{MNM_ANSWERED_REQUEST, kRequests[m_input.below(3)]},
                          {m_input.below(2) == 0 ? MNM_ACCOUNT_ID : MNM_USER, text()}};
        for (std::size_t count = m_input.below(40); count > 0; --count) {
            const int field = kDetailFields[m_input.below(std::size(kDetailFields))];
            fields.push_back({field, m_input.below(4) == 0 ? text() : m_input.oneOf(kDetailTexts)});
        }
        m_view.shown.clear();
        deliver(fields);
        for (const DetailGroup& group : m_view.shown) {
            require(!group.rows.empty() || m_view.shown.size() == 1,
                    "a group has rows, or says that there are none");
            for (const sMCListStruct& row : group.rows)
                require(row.mnemonic != 0 || row.attribute == RowAttribute::readOnly,
                        "what can be edited belongs to a field");
        }
    }

    void edit() {
        const int field = kDetailFields[m_input.below(std::size(kDetailFields))];
        const std::string typed = text().value_or("");
        if (m_input.below(2) == 0)
            m_workbench.details().valueEdited(field, typed.c_str());
        else
            m_workbench.details().choiceMade(field, typed.c_str());
    }

    std::vector<Slot> selection() {
        const std::size_t which = m_input.below(4);
        std::vector<Slot> rows;
        for (std::size_t row = 0; row < m_workbench.changes().size(); ++row)
            if (which == 0 || m_input.below(2) == 0)
                rows.push_back(m_workbench.changes().at(row).slot);
        return rows;
    }

    void showDetails() {
        const std::size_t rows = m_workbench.changes().size();
        if (rows == 0) return;
        m_workbench.details().open(m_workbench.changes().at(m_input.below(rows)));
    }

    void step() {
        switch (m_input.below(20)) {
            case 0:
                return answer();
            case 10:
            case 11:
                showDetails();
                return answerDetails();
            case 12:
                return edit();
            case 13:
                return m_workbench.presses().update();
            case 1:
                return showDetails();
            case 2:
                return m_workbench.presses().accept(selection());
            case 3: {
                const auto rows = selection();
                // Typed into an edit control: it ends at its first zero.
                const std::string reason = text().value_or("");
                return m_workbench.presses().reject(rows,
                                                    [&] { return std::string(reason.c_str()); });
            }
            case 4:
                m_workbench.presses().update();
                return m_workbench.presses().recover();
            case 5:
                m_host.rights.roles = {};
                for (const int item : {60302, 60303, 60304})
                    if (m_input.below(4) != 0) m_host.rights.roles.insert(item);
                m_host.rights.hasMenuItemService = m_input.below(8) != 0;
                return;
            case 6:
                m_host.control().works = m_input.below(4) != 0;
                return;
            case 7:
                m_host.whileBoxIsOpen = [this] {
                    otp_fail_call(0);
                    for (std::size_t count = m_input.below(4); count > 0; --count) publish();
                };
                return;
            case 8: {
                // The fault hits what the press asks of the library.
                const auto rows = selection();
                otp_fail_call(1 + static_cast<int>(m_input.below(12)));
                return m_workbench.presses().accept(rows);
            }
            case 9:
                return m_workbench.handlePublished(nullptr);
            default:
                return publish();
        }
    }

    void check() {
        PendingChanges& changes = m_workbench.changes();
        require(changes.rows().rowCount() == changes.size(), "every record is a row");
        for (std::size_t row = 0; row < changes.size(); ++row) {
            const PendingChange change = changes.at(row);
            const auto found = changes.findRecord(change.key);
            require(found && found->slot == change.slot, "every row is indexed");
            for (int column = 0; column < 8; ++column)
                require(changes.table().cellText(change.slot, ColumnId{column}).size() < kCellBytes,
                        "a cell fits its buffer");
        }
        require(m_host.beeps <= m_messages, "no tone without a message");
    }

    // While it is being sent.
    void checkSent(const SentMessage& message) const {
        require(!message.empty() && message.front().first == MNM_REQUEST_NAME,
                "a request begins with its name");
        require(std::find(kRequests.begin(), kRequests.end(), message.front().second) !=
                    kRequests.end(),
                "the name of a request is known");
        const auto decision = valueOf(message, MNM_STATUS);
        const std::string key = valueOf(message, MNM_AUTHORIZATION_KEY);
        require(decision.empty() || m_workbench.changes().findRecord(key),
                "only what is pending is decided");
        require((decision == "rejected") == !valueOf(message, MNM_ERROR).empty(),
                "a reject, and only a reject, has a reason");
    }

    Input m_input;
    FakeHost m_host;
    ViewRecorder m_view;
    Workbench m_workbench{m_host, m_view, m_view};
    int m_messages = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Session(data, size).run();
    return 0;
}
