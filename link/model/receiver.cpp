#include "link/model/receiver.h"

#include "framework/model/calls.h"
#include "link/model/mnemonics.h"
#include "link/model/requests.h"

namespace {

struct Route {
    std::string_view request;
    void (AnswerHandler::*take)(const FieldReader&);
    void (AnswerHandler::*refuse)(const FieldReader&);  // null: an error is dropped
};

constexpr Route kRoutes[] = {
    {kGetLimitsDetails, &AnswerHandler::limitsDetails, &AnswerHandler::detailsRefused},
    {kGetUserDetails, &AnswerHandler::userDetails, &AnswerHandler::detailsRefused},
    {kGetAccountDetails, &AnswerHandler::accountDetails, &AnswerHandler::detailsRefused},
    {kGetFunctionalityDetails, &AnswerHandler::recovered, nullptr},
};

}  // namespace

void routeAnswer(const FieldReader& answer, AnswerHandler& handler) {
    const auto request = answer.text(MNM_ANSWERED_REQUEST);
    if (!request) return;
    for (const Route& route : kRoutes) {
        if (route.request != *request) continue;
        const auto taker = answerError(answer) ? route.refuse : route.take;
        if (taker != nullptr) (handler.*taker)(answer);
        return;
    }
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
