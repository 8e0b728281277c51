#include "tests/blind/checks.h"

#include <algorithm>

#include "tests/windows/test_host.h"

namespace blind {
namespace {

using Keys = std::vector<std::string>;

enum class Kind { accept, reject, update, recover, details, unknown };

// A request by its fields: an update is an accept that carries values behind the status.
Kind kindOf(const Fields& request) {
    const std::string name = sentField(request, 0);
    if (name == "om_get_functionality_details") return Kind::recover;
    if (name.starts_with("om_get_auth_")) return Kind::details;
    if (name != "om_authenticate_functionality") return Kind::unknown;
    if (sentField(request, 10303) == "rejected") return Kind::reject;
    return request.back().first == 10303 ? Kind::accept : Kind::update;
}

Keys keysOf(const Story& story, Kind kind) {
    Keys keys;
    for (const Fields& request : story.sent)
        if (kindOf(request) == kind) keys.push_back(sentField(request, 51803));
    return keys;
}

std::string joined(const Keys& keys) {
    std::string text;
    for (const std::string& key : keys) text += (text.empty() ? "" : " ") + key;
    return "{" + text + "}";
}

std::string joined(const Texts& texts) {
    Keys parts;
    for (const auto& [caption, value] : texts) parts.push_back(caption + "=" + value);
    return joined(parts);
}

bool isSubsequence(const Keys& part, const Keys& whole) {
    auto at = whole.begin();
    return std::ranges::all_of(part, [&](const std::string& key) {
        at = std::find(at, whole.end(), key);
        return at != whole.end() && (++at, true);
    });
}

const char* pressOf(Kind kind) {
    constexpr const char* presses[] = {"Accept", "Reject", "Update", "Recover", "", ""};
    return presses[static_cast<int>(kind)];
}

}  // namespace

std::vector<std::string> Checks::after(const Story& story) {
    static constexpr struct {
        const char* name;
        Check check;
    } checks[] = {
        {"windows", &Checks::windows},     {"requests", &Checks::requests},
        {"decisions", &Checks::decisions}, {"updates", &Checks::updates},
        {"opened", &Checks::opened},       {"owner", &Checks::owner},
        {"edits", &Checks::edits},         {"filters", &Checks::filters},
        {"editor", &Checks::editor},       {"rows", &Checks::rows},
        {"line", &Checks::line},
    };
    std::vector<std::string> complaints;
    for (const auto& each : checks) {
        const std::string complaint = (this->*each.check)(story);
        const bool wanted =
            m_only.empty() ||
            ("," + m_only + ",").find("," + std::string(each.name) + ",") != std::string::npos;
        if (!complaint.empty() && wanted)
            complaints.push_back(std::string(each.name) + ": " + complaint);
    }
    return complaints;
}

// Each request was announced by a press of its button, and a press that nothing stood in the way of
// sent something.
std::string Checks::requests(const Story& story) {
    for (const Fields& request : story.sent) {
        const Kind kind = kindOf(request);
        if (kind == Kind::unknown) return "an unknown request: " + sentField(request, 0);
        if (kind != Kind::details && story.act.press != pressOf(kind))
            return std::string("nobody pressed ") + pressOf(kind) + " but it was sent for " +
                   sentField(request, 51803);
    }
    if (keysOf(story, Kind::recover).size() > 1) return "Recover sent twice";
    // Held back: the server changed what is selected just before.
    if (story.after.line.starts_with("Not sent")) return "";
    if (!story.act.certain || story.looped || !story.sends || !story.sent.empty()) return "";
    const bool something = story.act.press == "Recover" ||
                           (story.act.press == "Update" && !editsOf(story.before).empty()) ||
                           (story.act.press == "Accept" && !m_accepts.empty());
    return something ? "a press of " + story.act.press + " sent nothing" : "";
}

// What was selected at the press, and nothing else, is decided; in a box the server may be quicker.
std::string Checks::decisions(const Story& story) {
    const Keys selected = story.before.selectedKeys();
    const struct {
        Kind kind;
        Keys expected;
    } kinds[] = {{Kind::accept, m_accepts}, {Kind::reject, selected}};
    for (const auto& each : kinds) {
        const Keys sent = keysOf(story, each.kind);
        const bool all = sent == each.expected || ((!story.news.ended.empty() || !story.sends) &&
                                                   isSubsequence(sent, each.expected));
        if (!sent.empty() && !all)
            return std::string(pressOf(each.kind)) + " sent " + joined(sent) + " instead of " +
                   joined(each.expected);
    }
    return "";
}

// Before every action the line said what a press would send: how many changes, or which; of a pair,
// which first. What a press does send is compared with the same keys (decisions()).
std::string Checks::line(const Story& story) {
    const std::string& said = story.before.line;
    const bool accepts = said.find("Accept") != std::string::npos;
    for (const Fields& request : story.sent) {
        if (kindOf(request) != Kind::update || said.find("Update ") == std::string::npos) continue;
        const std::size_t values = limitsIn(request).size();
        const auto counted = std::to_string(values) + (values == 1 ? " value of " : " values of ");
        if (said.find("Update " + counted) == std::string::npos) return said;
    }
    if (said.ends_with("cannot be kept")) {
        const bool decided = std::ranges::any_of(
            story.sent, [](const Fields& request) { return kindOf(request) != Kind::details; });
        return decided && !story.looped ? said : "";
    }
    if (!accepts && said.find("Reject") == std::string::npos) return "";
    const Keys keys = accepts ? m_accepts : story.before.selectedKeys();
    const std::size_t count = std::set<std::string>(keys.begin(), keys.end()).size();
    const std::string verb = accepts ? "Accept " : "Reject ";
    const auto says = [&said](const std::string& text) {
        return said.find(text) != std::string::npos;
    };
    const bool right = count == 0 ? says("nothing")
                       : count == 1
                           ? says(verb + keys.front())
                           : says(verb + std::to_string(count) + " changes") ||
                                 (count == 2 && says(verb + keys.back() + " ADD CLIENT ") &&
                                  says(" (" + keys.front() + "), user first"));
    return right ? "" : "'" + said + "' was said of " + joined(keys);
}

Texts Checks::editsOf(const Sight& sight) const {
    const Server::Answer* received = m_server.answerOf(sight.tag);
    return received != nullptr ? sight.editsOver(received->values) : Texts{};
}

// An update carries what is marked, of the change that the strip names.
std::string Checks::updates(const Story& story) {
    for (const Fields& request : story.sent) {
        if (kindOf(request) != Kind::update) continue;
        const std::string key = sentField(request, 51803);
        if (!names(story.before.strip, key))
            return "an update for " + key + " below '" + story.before.strip + "'";
        if (story.after.tag != story.before.tag) continue;
        for (const auto& [field, value] : limitsIn(request))
            for (int row = 0; row < static_cast<int>(story.after.details.rows.size()); ++row)
                if (story.after.details.cell(row, "Field") == field &&
                    story.after.details.cell(row, "Value") != value)
                    return field + " shows " + story.after.details.cell(row, "Value") +
                           " and was sent as " + value;
        const Texts unsent = editsOf(story.after);
        if (!unsent.empty()) return "an update left out " + joined(unsent);
    }
    return "";
}

// A detail request is for the row that was meant, and of its kind; or for the change that is shown,
// which was published again.
std::string Checks::opened(const Story& story) {
    const Keys asked = keysOf(story, Kind::details);
    const Keys selected = story.after.selectedKeys();
    for (const Fields& request : story.sent) {
        if (kindOf(request) != Kind::details) continue;
        const std::string key = sentField(request, 51803);
        const auto change = m_server.pending().find(key);
        if (change != m_server.pending().end() &&
            change->second.detailRequest() != sentField(request, 0))
            return sentField(request, 0) + " for " + key;
        const bool again = story.news.any() && names(story.before.strip, key);
        const bool focused = story.act.press == kOpenFocused && key == story.before.focusedKey();
        const bool first = story.act.press == kOpenSelected &&
                           (story.looped || (!selected.empty() && key == selected.front()));
        const bool next = story.act.press == kOpenNext &&
                          (story.looped || key == story.after.focusedKey()) &&
                          std::ranges::find(selected, key) != selected.end();
        const bool neighbour =
            story.act.press == kOpenNeighbour && (story.looped || names(story.after.strip, key));
        if (!again && !focused && !first && !next && !neighbour) return "nobody opened " + key;
    }
    if (asked.size() > 1 && !story.looped && !story.news.any()) return "opened " + joined(asked);
    if (story.act.press != kOpenFocused || !story.act.certain || story.looped || !story.sends)
        return "";
    const auto change = m_server.pending().find(story.before.focusedKey());
    return asked.empty() && change != m_server.pending().end() &&
                   !change->second.detailRequest().empty()
               ? "Enter on " + change->first + " opened nothing"
               : "";
}

// The details belong to the change that the strip names, and a selection without it empties them
// unless they hold edits.
std::string Checks::owner(const Story& story) {
    const Sight& now = story.after;
    const Server::Answer* received = m_server.answerOf(now.tag);
    if (received == nullptr) return "";
    if (!names(now.strip, received->key))
        return "details of " + received->key + " below '" + now.strip + "'";
    if (!m_server.pending().contains(received->key))
        return "details of " + received->key + ", which is decided";
    const Keys selected = now.selectedKeys();
    if (!story.act.byHand || story.looped || selected == story.before.selectedKeys() ||
        selected.empty() || !editsOf(now).empty() || now.main.rows != story.before.main.rows)
        return "";
    return std::ranges::find(selected, received->key) == selected.end()
               ? "details of " + received->key + " beside a selection of " + joined(selected)
               : "";
}

// No edit goes without a Yes, an update or its change's end.
std::string Checks::edits(const Story& story) {
    const Texts before = editsOf(story.before), now = editsOf(story.after);
    const Server::Answer* received = m_server.answerOf(story.before.tag);
    if (before.empty() || story.saidYes || story.news.ended.contains(received->key) ||
        !keysOf(story, Kind::update).empty())
        return "";
    if (!names(story.after.strip, received->key))
        return "edits of " + received->key + " went: " + joined(before) + "; now '" +
               story.after.strip + "'";
    if (story.after.tag.empty()) return "";
    // What an update sent is no edit when it is typed once more.
    for (const auto& [field, value] : before)
        if (!now.contains(field) && !received->sent.contains(field) &&
            field != "GroupWise Validation")
            return "the edit " + field + "=" + value + " of " + received->key + " went";
    return "";
}

std::string Checks::filters(const Story& story) {
    m_filters.follow(story.act, story.looped, story.before, story.after);
    return m_filters.complaint(m_server.pending(), story.after);
}

// An open editor lies on the Value cell of the row that it was opened for.
std::string Checks::editor(const Story& story) {
    const Sight& now = story.after;
    if (now.editor == nullptr || now.editor != m_editor) m_editedField = now.editedField;
    m_editor = now.editor;
    if (m_editor == nullptr) return "";
    const int column = now.details.column("Value");
    for (int row = 0; row < static_cast<int>(now.details.rows.size()); ++row) {
        if (now.details.cell(row, "Field") != m_editedField) continue;
        const RECT cell = cellRect(now.details.window, row, column);
        RECT client{}, seen{};
        GetClientRect(now.details.window, &client);
        IntersectRect(&seen, &cell, &client);
        seen = onScreen(now.details.window, seen);
        const LONG middle = (now.editorPlace.top + now.editorPlace.bottom) / 2;
        if (now.editorPlace.left == seen.left && middle >= seen.top && middle <= seen.bottom)
            return "";
        return "the editor of " + m_editedField + " is not on its cell";
    }
    return "the editor's row " + m_editedField + " is not visible";
}

// Some rows at a time, whole.
std::string Checks::rows(const Story& story) {
    const ListSight& list = story.after.main;
    const int count = static_cast<int>(list.rows.size());
    for (int row = 0; row < count; ++row)
        if (!m_server.pending().contains(list.cell(row, "Key")))
            return "a row of " + list.cell(row, "Key") + ", which is not pending";
    for (int some = 0; some < std::min(count, 3); ++some) {
        const int row = m_nextRow++ % count;
        const Change& change = m_server.pending().at(list.cell(row, "Key"));
        for (const char* caption : {"Entity Name", "Auth Type", "Maker", "Branch", "Broker"})
            if (list.column(caption) >= 0 && list.readCell(row, caption) != change.cell(caption))
                return change.key + " shows " + caption + " " + list.readCell(row, caption);
    }
    return "";
}

// The pane lives, nothing modal is left, no key or button is down, and nothing was caught.
std::string Checks::windows(const Story& story) {
    const HWND frame = GetAncestor(story.before.pane, GA_ROOTOWNER);
    if (story.after.pane == nullptr || story.after.pane != story.before.pane)
        return "the pane is gone";
    if (IsWindowEnabled(frame) == 0) return "the frame is disabled";
    const std::string popup = classOf(GetLastActivePopup(frame));
    if (popup == "#32770") return "a dialog was left open";
    for (const int key : {VK_LBUTTON, VK_RBUTTON, VK_CONTROL, VK_SHIFT, VK_MENU})
        if (GetAsyncKeyState(key) < 0) return "key " + std::to_string(key) + " is down";
    return story.excepted ? "an exception was caught at the border" : "";
}

}  // namespace blind
