// The answers whose details were shown: whether the last one says other things than the first since
// the change was opened, and than the one before it, and whose details it was.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "details/model/detail_group.h"

namespace mc {

class ShownAnswers {
public:
    // Another change is opened, or none: the next answer is the first.
    void opened() { m_first = m_last = 0; }

    // An answer came. Returns whether it says other things than the first.
    bool compare(const std::vector<DetailGroup>& groups);
    bool differsFromLast() const { return m_differs; }

    // It is shown, as the details of `key`. Returns whether those before were of another.
    bool shown(const std::optional<std::string>& key) { return std::exchange(m_key, key) != key; }

private:
    std::optional<std::string> m_key;     // of the last one shown
    std::size_t m_first = 0, m_last = 0;  // prints of their texts; 0: there is none
    bool m_differs = false;
};

}  // namespace mc
