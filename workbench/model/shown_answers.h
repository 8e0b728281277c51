// The answers whose details were shown: whether the last one says other things than the first since
// the change was opened, and whose details it was.
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
    void opened() { m_print = 0; }

    // An answer came. Returns whether it says other things than the first.
    bool compare(const std::vector<DetailGroup>& groups);
    bool changed() const { return m_changed; }

    // It is shown, as the details of `key`. Returns whether those before were of another.
    bool shown(const std::optional<std::string>& key) { return std::exchange(m_key, key) != key; }

private:
    std::optional<std::string> m_key;  // of the last one shown
    std::size_t m_print = 0;           // of the texts of the first; 0: there is none
    bool m_changed = false;
};

}  // namespace mc
