#include "workbench/model/neighbours.h"

#include <algorithm>

#include "link/model/functionality.h"

namespace mc {
namespace {

constexpr std::size_t kMaxNamed = 3;
constexpr std::size_t kMaxSeen = 1000;      // changes whose fields are kept
constexpr std::size_t kMaxSeenFields = 64;  // of one change

// The changes about the same as the one under `key`, and its position among them.
struct Neighbourhood {
    std::vector<PendingChange> changes;
    std::size_t at = 0;
};

Neighbourhood around(const PendingChanges& changes, const std::string& key) {
    const auto change = changes.findRecord(key);
    if (!change) return {};
    Neighbourhood found{changes.related().aboutTheSame(*change)};
    const auto own = std::ranges::find(found.changes, key, &PendingChange::key);
    found.at = static_cast<std::size_t>(own - found.changes.begin());
    return found;
}

std::string nameOf(const PendingChange& change) {
    const Functionality* const kind = findFunctionality(change.functionalityCode);
    return kind != nullptr ? change.key + " " + std::string(kind->displayName) : change.key;
}

}  // namespace

void SeenFields::seen(const std::string& key, const std::vector<DetailGroup>& groups) {
    if (m_fields.size() >= kMaxSeen && !m_fields.contains(key)) return;
    std::vector<std::string>& fields = m_fields[key];
    fields.clear();
    for (const DetailGroup& group : groups)
        for (const sMCListStruct& row : group.rows)
            if (row.change != FieldChange::none && !row.caption.empty() &&
                fields.size() < kMaxSeenFields)
                fields.push_back(row.caption);
    std::ranges::sort(fields);
}

std::string_view SeenFields::shared(const std::string& key, const std::string& other) const {
    const auto own = m_fields.find(key), others = m_fields.find(other);
    if (own == m_fields.end() || others == m_fields.end()) return {};
    const auto both = std::ranges::find_if(own->second, [&](const std::string& field) {
        return std::ranges::binary_search(others->second, field);
    });
    return both != own->second.end() ? std::string_view(*both) : std::string_view();
}

std::string alsoPending(const PendingChanges& changes, const SeenFields& seen,
                        const std::string& key) {
    const auto [all, at] = around(changes, key);
    std::string text;
    std::size_t others = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i == at || others++ >= kMaxNamed) continue;
        text += (text.empty() ? "also pending: " : "; ") + nameOf(all[i]);
        const std::string_view field = i < at ? seen.shared(key, all[i].key) : std::string_view();
        if (!field.empty()) text.append(" (older, changes ").append(field).append(" too)");
    }
    if (others > kMaxNamed) text += "; and " + std::to_string(others - kMaxNamed) + " more";
    if (all.size() >= RelatedChanges::kMaxAbout) text += " or further";
    return text.empty() ? text : text + " (F8)";
}

std::optional<PendingChange> nextNeighbour(const PendingChanges& changes, const std::string& key) {
    const auto [all, at] = around(changes, key);
    const bool own = at < all.size();
    if (all.size() < (own ? 2u : 1u)) return std::nullopt;
    return all[own ? (at + 1) % all.size() : 0];
}

}  // namespace mc
