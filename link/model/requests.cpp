#include "link/model/requests.h"

#include <new>
#include <string_view>
#include <vector>

#include "link/model/mnemonics.h"

namespace mc {

// What a failing step reports; "%s" is the request's name. Level 0 reports nothing.
struct Requests::Failure {
    std::string_view text;
    int level = 0;
};

// A field after the request's name.
struct Requests::Step {
    int mnemonic;
    const std::string* value;
    Failure failure;
};

// What a request is called and says, apart from its fields.
struct Requests::Form {
    const char* name;
    Failure start;      // otp_start_msg fails
    Failure nameField;  // the name cannot be appended
    Failure send;
    std::string_view success;
};

namespace {

const std::string kAccepted = "accepted";
const std::string kRejected = "rejected";
const std::string kLimitsCode{kRmsLimits};

std::string withName(std::string_view text, std::string_view name) {
    std::string line(text);
    if (const auto at = line.find("%s"); at != std::string::npos) line.replace(at, 2, name);
    return line;
}

// The yes/no setting goes out as words; a text that is neither choice goes out as it was typed.
std::string outgoingLimit(int mnemonic, const std::string& value) {
    if (mnemonic != MNM_GROUPWISE_VALIDATION) return value;
    if (value == "E") return "yes";
    if (value == "D") return "no";
    return value;
}

}  // namespace

bool Requests::fail(const Form& form, const Failure& failure) {
    if (failure.level != 0) m_host.reportToUser(withName(failure.text, form.name), failure.level);
    return false;
}

bool Requests::build(const Form& form, std::span<const Step> steps) {
    if (!m_link.startMessage()) return fail(form, form.start);
    if (!m_link.append(MNM_REQUEST_NAME, form.name)) return fail(form, form.nameField);
    for (const Step& step : steps)
        if (!m_link.append(step.mnemonic, step.value->c_str())) return fail(form, step.failure);
    return true;
}

bool Requests::deliver(const Form& form) {
    if (!m_link.send()) return fail(form, form.send);
    m_host.reportToUser(form.success, kReportMessage);
    return true;
}

// What has left has left, whether or not there is memory to note it.
int Requests::tried(const TriedRequest& request) const {
    try {
        if (m_tried) m_tried(request);
    } catch (const std::bad_alloc&) {
    }
    return request.left ? 1 : 0;
}

int Requests::requestDetails(DetailKind kind, const std::string& key) {
    constexpr Failure failure{"Request failure", kReportMessage};
    constexpr Failure start{"Messaging failure.", kReportMessage};
    constexpr std::string_view entity = "Request for getting entities details sent ";
    constexpr std::string_view account = "Request for getting account details sent ";
    static constexpr struct {
        DetailKind kind;
        Form form;
    } kinds[] = {
        {DetailKind::user, {kGetUserDetails, start, failure, failure, entity}},
        {DetailKind::account, {kGetAccountDetails, start, failure, failure, account}},
        {DetailKind::limits, {kGetLimitsDetails, start, failure, failure, entity}},
    };
    for (const auto& each : kinds) {
        if (each.kind != kind) continue;
        const Step steps[] = {{MNM_REQUESTING_USER, &m_host.peerUserId(), failure},
                              {MNM_AUTHORIZATION_KEY, &key, failure}};
        if (!build(each.form, steps)) return 0;
        m_details.key = key;
        return deliver(each.form) ? 1 : 0;
    }
    return 0;
}

// The fields of a decision: the entity's, where the change's kind has one, then `rest`.
std::vector<Requests::Step> Requests::decisionSteps(const sMakeCheckStruct& record,
                                                    std::initializer_list<Step> rest) {
    std::vector<Step> steps;
    const Functionality* kind = findFunctionality(record.functionalityCode);
    if (kind != nullptr && kind->entityField != 0)
        steps.push_back({kind->entityField,
                         &record.entityName,
                         {kind->entityField == MNM_USER ? "MNM_USER failed while sending %s"
                                                        : "MNM_ACCOUNT_ID failed while sending %s",
                          kReportError}});
    steps.insert(steps.end(), rest);
    return steps;
}

int Requests::sendAccept(const sMakeCheckStruct& record) {
    static constexpr Form form{kAuthenticateFunctionality,
                               {},
                               {},
                               {"Failed while sending %s", kReportError},
                               "Request sent to Accept Authentication"};
    const auto steps = decisionSteps(
        record,
        {{MNM_SOURCE_USER_ID,
          &m_host.peerUserId(),
          {"MNM_SOURCE_USER_ID failed while sending %s", kReportError}},
         {MNM_AUTHORIZATION_KEY, &record.key, {"51803 failed while sending %s", kReportError}},
         {MNM_FUNCTIONALITY, &record.functionalityCode, {"Request failure", kReportMessage}},
         {MNM_STATUS, &kAccepted, {"MNM_STATUS failed while sending %s", kReportError}}});
    const bool left = build(form, steps) && deliver(form);
    return tried({RequestKind::accept, left, record.key, &record});
}

// A reject sends code and key the other way round, and its failures have spellings of their own:
// the server's side and the log's readers know both as they are.
int Requests::sendReject(const sMakeCheckStruct& record, const std::string& reason) {
    static constexpr Failure failure{"Failed while sending %s", kReportError};
    static constexpr Form form{kAuthenticateFunctionality, failure, failure, failure,
                               "Request sent to Reject Authentication"};
    const auto steps = decisionSteps(
        record,
        {{MNM_SOURCE_USER_ID,
          &m_host.peerUserId(),
          {"MNM_USER Failed while sending %s", kReportError}},
         {MNM_ERROR, &reason, {"Request failure", kReportMessage}},
         {MNM_FUNCTIONALITY, &record.functionalityCode, {"Request failure", kReportMessage}},
         {MNM_AUTHORIZATION_KEY, &record.key, {"51803 Failed while sending %s", kReportError}},
         {MNM_STATUS, &kRejected, {"MNM_STATUS Failed while sending %s", kReportError}}});
    const bool left = build(form, steps) && deliver(form);
    return tried({RequestKind::reject, left, record.key, &record, reason});
}

int Requests::sendLimitsUpdate() {
    static constexpr Failure sourceUser{"MNM_SOURCE_USER_ID failed while sending %s", kReportError};
    static constexpr Failure status{"MNM_STATUS failed while sending %s", kReportError};
    static constexpr Form form{kAuthenticateFunctionality,
                               sourceUser,
                               sourceUser,
                               {"Failed while sending %s", kReportError},
                               "Request sent to Update RMS Limits Authentication"};
    if (m_details.modifiedValues.empty()) return 0;
    const std::string key = m_details.key.value_or("");
    ModifiedValues outgoing;
    for (const auto& [mnemonic, value] : m_details.modifiedValues)
        outgoing[mnemonic] = outgoingLimit(mnemonic, value);

    std::vector<Step> steps{
        {MNM_SOURCE_USER_ID, &m_host.peerUserId(), sourceUser},
        {MNM_AUTHORIZATION_KEY, &key, {"51803 failed while sending %s", kReportError}},
        {MNM_FUNCTIONALITY, &kLimitsCode, {"Request failure", kReportMessage}},
        {MNM_STATUS, &kAccepted, status}};
    // Whichever limit fails, the log names the status field.
    for (const auto& [mnemonic, value] : outgoing) steps.push_back({mnemonic, &value, status});
    const bool left = build(form, steps) && deliver(form);
    if (left) m_details.modifiedValues.clear();
    return tried({RequestKind::update, left, key, nullptr, {}, outgoing.size()});
}

int Requests::sendRecovery() {
    // The field is the user's, the text names the source user.
    static constexpr Failure user{"MNM_SOURCE_USER_ID failed while sending %s", kReportError};
    static constexpr Form form{kGetFunctionalityDetails,
                               user,
                               user,
                               {"Failed while sending %s", kReportError},
                               "Request sent to Recovery"};
    const Step steps[] = {{MNM_USER, &m_host.peerUserId(), user}};
    return tried({RequestKind::recover, build(form, steps) && deliver(form)});
}

}  // namespace mc
