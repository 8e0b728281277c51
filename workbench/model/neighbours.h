// The neighbours of the change that is looked at: other pending changes about the same.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "details/model/detail_group.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

// Which fields the changes change whose details were seen.
class SeenFields {
public:
    void seen(const std::string& key, const std::vector<DetailGroup>& groups);
    void ended(const std::string& key) { m_fields.erase(key); }
    void clear() { m_fields.clear(); }

    // The first field that both change; empty when there is none, or one was not seen.
    std::string_view shared(const std::string& key, const std::string& other) const;

private:
    std::map<std::string, std::vector<std::string>> m_fields;  // sorted, by key
};

// "also pending: 1003 MODIFY CLIENT; 1011 RMS Limits; and 2 more (F8)". An older one that
// changes a field which the change does too is named with it. Empty without neighbours.
std::string alsoPending(const PendingChanges& changes, const SeenFields& seen,
                        const std::string& key);

// The neighbour behind the change in order of keys, or the first when there is none behind it. None
// without neighbours.
std::optional<PendingChange> nextNeighbour(const PendingChanges& changes, const std::string& key);

}  // namespace mc
