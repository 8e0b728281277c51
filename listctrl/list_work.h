// CListWork: long work on a list, seen and ended by the user.
//
// Beyond a moment the wait cursor shows, and from then on Esc ends the work. It is the only input
// that is looked for, and only where it is the first key in the queue: no other is handled, lost or
// overtaken, and nothing else acts on that Esc. What other threads send comes in meanwhile.
#pragma once

#include <functional>
#include <string>

#include "framework/window.h"
#include "listctrl/list_update.h"
#include "listctrl/model/table/long_work.h"

namespace mc {

class CListWork {
public:
    // Both must outlive the object.
    CListWork(const fw::CWindow& list, CListUpdate& update) : m_list(list), m_update(update) {}

    // Runs work that Esc may end: it then returns false, or throws LongWork::Ended, and has left
    // everything as it was. `what` it is ("sorting") is noted. The list may end meanwhile, and the
    // work with it. Returns whether it was done.
    using Work = std::function<bool(const LongWork&)>;
    bool run(const char* what, const Work& work);
    // Runs work that Esc does not end.
    static void finish(const Work& work);

    // "sorting was interrupted", for some seconds or until other work begins; else empty.
    const std::string& note() const { return m_note; }

    bool onTimer(UINT_PTR id);

private:
    void say(std::string note);

    const fw::CWindow& m_list;
    CListUpdate& m_update;
    std::string m_note;
};

}  // namespace mc
