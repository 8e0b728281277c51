// The edits of the open details that were not sent, and the values that they are typed over.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "details/model/detail_group.h"
#include "link/model/requests.h"

namespace mc {

class UnsentEdits {
public:
    // What an update sends; it must outlive the object.
    explicit UnsentEdits(ModifiedValues& values) : m_values(values) {}

    std::size_t count() const { return m_values.size(); }
    void keep(int mnemonic, std::string value);
    void end();     // they have left, or are given up
    void forget();  // the details are gone, too

    // An answer came: puts the edits into its rows, and keeps what those that follow are typed
    // over.
    void putInto(std::vector<DetailGroup>& groups);

private:
    void put(std::vector<DetailGroup>& groups);

    ModifiedValues& m_values;
    std::map<int, std::string> m_received;   // by field: the values of the last answer
    std::map<int, std::string> m_typedOver;  // by edited field: the value at the time
};

}  // namespace mc
