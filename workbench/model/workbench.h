// The workbench without its windows: the records, the link, the intake and the checker's decisions.
//
// The pane makes one when its dialog is initialised and destroys it with its window; natively it is
// tested against the console's server. All on the user-interface thread.
#pragma once

#include "details/model/intake.h"
#include "link/model/receiver.h"
#include "link/model/requests.h"
#include "link/model/server_link.h"
#include "workbench/model/decisions.h"
#include "workbench/model/pending_changes.h"
#include "workbench/model/workbench_view.h"

class Workbench final : public AnswerHandler {
public:
    // Opens the server link, which may show message boxes. Both must outlive the object.
    Workbench(Host& host, WorkbenchView& view);

    // Destroys all records, empties the details and closes the link, in that order.
    ~Workbench();

    PendingChanges& changes() { return m_changes; }
    const PendingChanges& changes() const { return m_changes; }

    int subscribe() { return m_link->subscribe(); }
    int unsubscribe() { return m_link->unsubscribe(); }

    // Takes in a published message; null is ignored.
    void handlePublished(void* message);

    // Empties the details and asks for those of `record`, where its kind has any.
    void showDetails(const sMakeCheckStruct& record);

    // The four buttons. `selected` is in row order.
    void accept(SelectedRecords selected);
    void reject(SelectedRecords selected, const std::string& reason);
    void update();
    void recover();

    void detailsRefused(const FieldReader& answer) override;
    void limitsDetails(const FieldReader& answer) override;
    void userDetails(const FieldReader& answer) override;
    void accountDetails(const FieldReader& answer) override;
    void recovered(const FieldReader& answer) override;

private:
    bool late(const FieldReader& answer) const;

    Host& m_host;
    WorkbenchView& m_view;
    PendingChanges m_changes;
    DetailsOnShow m_details;
    Intake m_intake;
    std::unique_ptr<serverLink> m_link;
    Requests m_requests;
};
