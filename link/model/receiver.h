// The receiver of answers, and where it routes them.
#pragma once

#include "link/model/functionality.h"
#include "link/model/message.h"
#include "sdk/receive_control.h"

namespace mc {

// What happens to an answer. The workbench implements it, and so do tests of the router: the link
// knows neither builders nor panes.
class AnswerHandler {
public:
    // An answer to a detail request of this kind.
    virtual void detailsCame(DetailKind kind, const FieldReader& answer) = 0;

    // The same, but the answer carries an error.
    virtual void detailsRefused(DetailKind kind, const FieldReader& answer) = 0;

    // An answer to recovery: one pending change, as if it had been published.
    virtual void recovered(const FieldReader& answer) = 0;

protected:
    ~AnswerHandler() = default;
};

// Routes an answer by the request that it belongs to. One that names no request, or one that the
// workbench does not know, is ignored, and so is an error to recovery.
void routeAnswer(const FieldReader& answer, AnswerHandler& handler);

// The notifier that the host's receive controls call back.
class CMCRxr final : public CQuonRxNotifierBase {
public:
    explicit CMCRxr(AnswerHandler& handler) : m_handler(handler) {}

    void onStatus(int, int, void*) override {}
    void onMessage(int, int, void* message, void*) override;

private:
    AnswerHandler& m_handler;
};

}  // namespace mc
