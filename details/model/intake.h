// The intake: keeps the records and their rows in step with what the server publishes.
#pragma once

#include "link/model/host.h"
#include "link/model/message.h"
#include "link/model/requests.h"
#include "workbench/model/pending_changes.h"
#include "workbench/model/workbench_view.h"

class Intake {
public:
    // All must outlive the object.
    Intake(Host& host, PendingChanges& changes, DetailsOnShow& details, WorkbenchView& view)
        : m_host(host), m_changes(changes), m_details(details), m_view(view) {}

    // Takes in one published message. "auth pending" creates or refreshes the record, if the
    // checker may see the change and did not make it himself; "accepted" and "rejected" remove it.
    // Without a status or a key, or with another status, nothing happens.
    void handle(const FieldReader& message);

private:
    void takePending(const FieldReader& message, PuGetFindMenuItemInRoles* holdsMenuItem);
    void takeDecided(const FieldReader& message);
    void discardListed(std::string key);  // by value: it may be the record's own

    Host& m_host;
    PendingChanges& m_changes;
    DetailsOnShow& m_details;
    WorkbenchView& m_view;
};
