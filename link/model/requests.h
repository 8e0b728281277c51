// The five kinds of request that the workbench sends, field by field.
//
// Each is built in the link's one message and sent through its control. The first failing step ends
// the request: it is reported, nothing is sent, and no record changes. No request is retried.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "link/model/functionality.h"
#include "link/model/host.h"
#include "link/model/pending_record.h"
#include "link/model/server_link.h"

namespace mc {

inline constexpr char kGetUserDetails[] = "om_get_auth_user_details";
inline constexpr char kGetAccountDetails[] = "om_get_auth_account_details";
inline constexpr char kGetLimitsDetails[] = "om_get_auth_limits_details";
inline constexpr char kAuthenticateFunctionality[] = "om_authenticate_functionality";
inline constexpr char kGetFunctionalityDetails[] = "om_get_functionality_details";

// Limit values that the checker edited: mnemonic id to text, sent in ascending order of id.
using ModifiedValues = std::map<int, std::string>;

// The details that were asked for last.
struct AskedDetails {
    std::optional<std::string> key;  // of their change; none before the first
    ModifiedValues modifiedValues;   // edits that are not yet sent
};

enum class RequestKind { accept, reject, update, recover };

// A request that decides, or asks for what is to be decided, and has left or failed to.
struct TriedRequest {
    RequestKind kind;
    bool left;
    std::string_view key = {};                 // of the change; a recovery has none
    const sMakeCheckStruct* change = nullptr;  // of an acceptance or a rejection, as it was sent
    std::string_view reason = {};              // of a rejection
    std::size_t values = 0;                    // how many limits an update sends
};

class Requests {
public:
    // All three must outlive the object.
    Requests(Host& host, serverLink& link, AskedDetails& details)
        : m_host(host), m_link(link), m_details(details) {}

    // Called after each try, before the call that made it returns; one listener at most. What it is
    // given lives as long as the call.
    using TriedListener = std::function<void(const TriedRequest&)>;
    void setTriedListener(TriedListener listener) { m_tried = std::move(listener); }

    // Ask for the details of the change with `key`, which becomes the visible one just before the
    // request leaves. Return 1 if sent, else 0. requestDetails of kind none sends nothing.
    int requestDetails(DetailKind kind, const std::string& key);
    int requestUserDetails(const std::string& key) { return requestDetails(DetailKind::user, key); }
    int requestAccountDetails(const std::string& key) {
        return requestDetails(DetailKind::account, key);
    }
    int requestLimitsDetails(const std::string& key) {
        return requestDetails(DetailKind::limits, key);
    }

    // Decide a change. Return 1 if sent, else 0. The record goes when the outcome is published.
    int sendAccept(const sMakeCheckStruct& record);
    int sendReject(const sMakeCheckStruct& record, const std::string& reason);

    // Sends the edited limits of the visible change and, when they have left, forgets them. Returns
    // 1 if sent, else 0. Without any it does nothing.
    int sendLimitsUpdate();

    // Asks for everything that is pending. Returns 1 if sent, else 0.
    int sendRecovery();

private:
    struct Failure;
    struct Step;
    struct Form;

    static std::vector<Step> decisionSteps(const sMakeCheckStruct& record,
                                           std::initializer_list<Step> rest);
    bool build(const Form& form, std::span<const Step> steps);
    bool deliver(const Form& form);
    bool fail(const Form& form, const Failure& failure);
    int tried(const TriedRequest& request) const;

    Host& m_host;
    serverLink& m_link;
    AskedDetails& m_details;
    TriedListener m_tried;
};

}  // namespace mc
