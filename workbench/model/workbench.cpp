#include "workbench/model/workbench.h"

#include "link/model/functionality.h"
#include "link/model/mnemonics.h"
#include "workbench/model/shown_details.h"

Workbench::Workbench(Host& host, WorkbenchView& view)
    : m_host(host),
      m_view(view),
      m_changes(view),
      m_intake(host, m_changes, m_details, view),
      m_link(std::make_unique<serverLink>(host, *this)),
      m_requests(host, *m_link, m_details) {}

Workbench::~Workbench() {
    m_changes.clearAllRecords();
    emptyDetails(m_details, m_view);
    m_link.reset();
}

void Workbench::handlePublished(void* message) {
    if (message != nullptr) m_intake.handle(FieldReader(message));
}

void Workbench::showDetails(const sMakeCheckStruct& record) {
    const Functionality* kind = findFunctionality(record.functionalityCode);
    const std::string key = record.key;  // a message box may let the record go
    emptyDetails(m_details, m_view);
    if (kind != nullptr) m_requests.requestDetails(kind->details, key);
}

void Workbench::accept(SelectedRecords selected) {
    acceptSelected(selected, m_changes, m_requests, m_host);
}

void Workbench::reject(SelectedRecords selected, const std::string& reason) {
    rejectSelected(selected, reason, m_changes, m_requests);
}

void Workbench::update() {
    m_requests.sendLimitsUpdate();
}

void Workbench::recover() {
    emptyDetails(m_details, m_view);
    m_requests.sendRecovery();
}

// An answer for another change than the one asked for last came too late to be shown.
bool Workbench::late(const FieldReader& answer) const {
    const auto key = answer.text(MNM_AUTHORIZATION_KEY);
    return key && m_details.key != *key;
}

void Workbench::detailsRefused(const FieldReader& answer) {
    if (!late(answer)) emptyDetails(m_details, m_view);
}

// The builders of detail rows are not there yet: the details list stays empty.
void Workbench::limitsDetails(const FieldReader&) {}
void Workbench::userDetails(const FieldReader&) {}
void Workbench::accountDetails(const FieldReader&) {}

void Workbench::recovered(const FieldReader& answer) {
    m_intake.handle(answer);
}
