#include "workbench/model/unsent_edits.h"

#include <utility>

#include "details/model/captions.h"

namespace mc {
namespace {

template <class Visit>
void forEachField(std::vector<DetailGroup>& groups, Visit visit) {
    for (DetailGroup& group : groups)
        for (sMCListStruct& row : group.rows)
            if (row.mnemonic != 0) visit(row);
}

}  // namespace

void UnsentEdits::keep(int mnemonic, std::string value) {
    m_typedOver.try_emplace(mnemonic, m_received[mnemonic]);
    m_values[mnemonic] = std::move(value);
}

void UnsentEdits::end() {
    m_values.clear();
    m_typedOver.clear();
}

void UnsentEdits::forget() {
    end();
    m_received.clear();
}

void UnsentEdits::putInto(std::vector<DetailGroup>& groups) {
    m_received.clear();
    forEachField(groups,
                 [this](const sMCListStruct& row) { m_received[row.mnemonic] = row.value; });
    if (count() != 0) put(groups);
}

// An edit of a field that the answer does not carry any more gets a row of its own: what an update
// sends is always visible.
void UnsentEdits::put(std::vector<DetailGroup>& groups) {
    std::vector<int> left;
    for (const auto& [mnemonic, value] : m_values)
        if (!m_received.contains(mnemonic)) left.push_back(mnemonic);
    if (groups.empty()) groups.emplace_back();
    for (const int mnemonic : left) {
        sMCListStruct& row = groups.back().rows.emplace_back();
        row.caption = captionOf(mnemonic);
        row.mnemonic = mnemonic;
    }
    forEachField(groups, [this](sMCListStruct& row) {
        const auto edit = m_values.find(row.mnemonic);
        if (edit == m_values.end()) return;
        row.received = std::exchange(row.value, edit->second);
        row.edited = true;
        row.overOlder = m_typedOver[row.mnemonic] != row.received;
    });
}

}  // namespace mc
