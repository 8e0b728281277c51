// The intake: keeps the pending changes and their rows in step with what the server publishes.
#pragma once

#include <string>
#include <string_view>

#include "link/model/host.h"
#include "link/model/message.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

// Notified of single changes by the intake. The workbench implements it, and the intake's tests.
class IntakeListener {
public:
    // A listed change was published again; its texts are those that came.
    virtual void publishedAgain(const std::string& key) = 0;

    // A listed change has other texts, and its row is not painted for it.
    virtual void rewritten(const std::string&) {}

    // The outcome of a change, listed or not: "accepted" or "rejected". Comes before changeEnded().
    virtual void outcomeCame(const std::string&, std::string_view) {}

    // The change was decided, or its record went; whether or not it was listed.
    virtual void changeEnded(const std::string& key) = 0;

protected:
    ~IntakeListener() = default;
};

class Intake {
public:
    // All must outlive the object.
    Intake(Host& host, PendingChanges& changes, IntakeListener& listener)
        : m_host(host), m_changes(changes), m_listener(listener) {}

    using Origin = PendingChanges::Origin;

    // Takes in one published message, or an answer to a Recover. "auth pending" creates or
    // refreshes the record, if the checker may see the change and did not make it himself;
    // "accepted" and "rejected" remove it. Without a status or a key, or with another status,
    // nothing happens.
    void handle(const FieldReader& message, Origin origin = Origin::published);

private:
    void takePending(const FieldReader& message, Origin origin,
                     PuGetFindMenuItemInRoles* holdsMenuItem);
    void takeDecided(const FieldReader& message, std::string_view outcome);
    void discardListed(const std::string& key);

    Host& m_host;
    PendingChanges& m_changes;
    IntakeListener& m_listener;
};

}  // namespace mc
