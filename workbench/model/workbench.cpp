#include "workbench/model/workbench.h"

#include <utility>

#include "details/model/details_builders.h"
#include "details/model/limit_edits.h"
#include "link/model/functionality.h"
#include "link/model/mnemonics.h"
#include "workbench/model/shown_details.h"

Workbench::Workbench(Host& host, WorkbenchView& view)
    : m_host(host),
      m_view(view),
      m_changes(view),
      m_intake(host, m_changes, m_details, view),
      m_link(host, *this),
      m_requests(host, m_link, m_details) {}

void Workbench::close() {
    if (m_link.closed()) return;
    m_changes.clearAllRecords();
    emptyDetails(m_details, m_view);
    m_link.close();
}

void Workbench::handlePublished(void* message) {
    if (message != nullptr && !m_link.closed()) m_intake.handle(FieldReader(message));
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
    if (m_requests.sendLimitsUpdate() != 0) m_view.editsSent();
}

void Workbench::recover() {
    emptyDetails(m_details, m_view);
    m_requests.sendRecovery();
}

std::optional<std::string> Workbench::valueEdited(int mnemonic, const std::string& typed) {
    return keepEdit(mnemonic, spellLimit(mnemonic, typed));
}

std::optional<std::string> Workbench::choiceMade(int mnemonic, const std::string& chosen) {
    return keepEdit(mnemonic, chosen);
}

std::optional<std::string> Workbench::keepEdit(int mnemonic, std::optional<std::string> value) {
    if (mnemonic == 0 || !m_details.key || !value) return std::nullopt;
    return m_details.modifiedValues[mnemonic] = *std::move(value);
}

// An answer for another change than the one asked for last came too late to be shown, and so did
// one that names no change while none is asked for.
bool Workbench::late(const FieldReader& answer) const {
    const auto key = answer.text(MNM_AUTHORIZATION_KEY);
    return !m_details.key || (key && m_details.key != *key);
}

void Workbench::detailsRefused(const FieldReader& answer) {
    if (!late(answer)) emptyDetails(m_details, m_view);
}

// A second answer for the change on show replaces the rows of the first, and the edits in them.
void Workbench::show(std::vector<DetailGroup> groups) {
    m_details.modifiedValues.clear();
    m_view.emptyDetails();
    m_view.showDetails(std::move(groups));
}

bool Workbench::mayModify() const {
    auto* const holdsRight = m_host.modifyRightService();
    return holdsRight != nullptr && holdsRight() != 0;
}

void Workbench::limitsDetails(const FieldReader& answer) {
    if (!late(answer)) show(BuildLimitsDetails(answer, mayModify()));
}

void Workbench::userDetails(const FieldReader& answer) {
    if (!late(answer)) show(BuildUserDetails(answer));
}

void Workbench::accountDetails(const FieldReader& answer) {
    if (!late(answer)) show(BuildClientDetails(answer));
}

void Workbench::recovered(const FieldReader& answer) {
    if (!m_link.closed()) m_intake.handle(answer);
}
