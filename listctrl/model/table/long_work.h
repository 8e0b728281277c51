// Work over many records that somebody may end before it is done.
//
// The work counts the records that it looks at, and is asked now and then whether it is to go on.
// If not, it is left by an exception up to the call that began it, which leaves everything as it
// was. So what is made on the way is made apart, and put where it belongs when it is whole.
#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <utility>

namespace mc {

class LongWork {
public:
    // Whether to go on. What it does must be good in the middle of the work.
    using Ask = std::function<bool()>;
    struct Ended {};

    static constexpr std::size_t kBetween = 4096;  // records from one question to the next

    // Nobody ends it.
    LongWork() = default;
    explicit LongWork(Ask ask, std::size_t between = kBetween)
        : m_ask(std::move(ask)), m_between(between), m_left(between) {}

    bool isAsked() const { return m_ask != nullptr; }
    std::size_t between() const { return m_between; }
    bool goesOn() const { return m_ask(); }

    // Some records were looked at. Throws Ended.
    void did(std::size_t records = 1) const {
        if (records < m_left) {
            m_left -= records;
            return;
        }
        m_left = m_between;
        if (m_ask && !m_ask()) throw Ended{};
    }

private:
    Ask m_ask;
    std::size_t m_between = std::numeric_limits<std::size_t>::max();
    mutable std::size_t m_left = m_between;
};

}  // namespace mc
