#include "link/model/receiver.h"

#include "framework/model/calls.h"
#include "link/model/mnemonics.h"
#include "link/model/requests.h"

namespace mc {
namespace {

struct Route {
    std::string_view request;
    DetailKind kind;  // none: the answer to recovery
};

constexpr Route kRoutes[] = {
    {kGetLimitsDetails, DetailKind::limits},
    {kGetUserDetails, DetailKind::user},
    {kGetAccountDetails, DetailKind::account},
    {kGetFunctionalityDetails, DetailKind::none},
};

void hand(const Route& route, const FieldReader& answer, AnswerHandler& handler) {
    const bool refused = answerError(answer).has_value();
    if (route.kind == DetailKind::none) {
        if (!refused) handler.recovered(answer);
    } else if (refused) {
        handler.detailsRefused(route.kind, answer);
    } else {
        handler.detailsCame(route.kind, answer);
    }
}

}  // namespace

void routeAnswer(const FieldReader& answer, AnswerHandler& handler) {
    const auto request = answer.text(MNM_ANSWERED_REQUEST);
    if (!request) return;
    for (const Route& route : kRoutes)
        if (route.request == *request) return hand(route, answer, handler);
}

void CMCRxr::onMessage(int, int, void* message, void*) {
    if (message == nullptr) return;
    const fw::Call call;
    try {
        routeAnswer(FieldReader(message), m_handler);
    } catch (...) {
        // Nothing may pass into the host; the answer is lost, the workbench stays as it is.
    }
}

}  // namespace mc
