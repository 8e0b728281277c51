#include "workbench/model/shown_details.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "details/model/captions.h"
#include "link/model/functionality.h"

namespace mc {
namespace {

constexpr std::string_view kTitle = "Maker Checker Details";

// The parts that are not empty, with ", " between them.
std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        if (!text.empty() && !part.empty()) text += ", ";
        text += part;
    }
    return text;
}

// Tells two answers apart by the texts of their rows.
std::size_t printOf(const std::vector<DetailGroup>& groups) {
    std::size_t print = groups.size();
    const auto add = [&print](const sMCListStruct& row) {
        for (const std::string* text : {&row.caption, &row.value, &row.oldValue})
            print = print * 31 + std::hash<std::string>()(*text);
    };
    for (const DetailGroup& group : groups) {
        add(group.header);
        std::for_each(group.rows.begin(), group.rows.end(), add);
    }
    return print;
}

template <class Visit>
void forEachField(std::vector<DetailGroup>& groups, Visit visit) {
    for (DetailGroup& group : groups)
        for (sMCListStruct& row : group.rows)
            if (row.mnemonic != 0) visit(row);
}

}  // namespace

// ---- Which change ----

std::string ShownDetails::nameOf(const sMakeCheckStruct& record) {
    const Functionality* kind = findFunctionality(record.functionalityCode);
    return joined(
        {record.entityName, kind != nullptr ? kind->displayName : std::string_view(), record.key});
}

void ShownDetails::name(const sMakeCheckStruct& record) {
    const Functionality* kind = findFunctionality(record.functionalityCode);
    m_key = record.key;
    m_kind = kind != nullptr ? kind->details : DetailKind::none;
    m_name = nameOf(record);
}

void ShownDetails::open(const sMakeCheckStruct& record) {
    forget();
    name(record);
    if (m_kind == DetailKind::none) m_state = State::withoutDetails;
}

void ShownDetails::forget() {
    editsEnded();
    m_asked = {};
    m_key.reset();
    m_name.clear();
    m_news.clear();
    m_kind = DetailKind::none;
    m_state = State::none;
    m_askAgain = m_dimmed = false;
    m_print = 0;
    m_received.clear();
}

void ShownDetails::requested() {
    Request request{*m_key, m_kind};
    m_unanswered.reserve(m_unanswered.size() + 1);
    if (m_state == State::shown)
        m_news = "published again, asking for it";
    else
        m_state = State::waiting;
    m_askAgain = false;
    m_unanswered.push_back(std::move(request));
}

void ShownDetails::notSent() {
    m_unanswered.pop_back();
    if (m_state == State::waiting)
        m_state = State::notSent;
    else
        m_news = "published again, but it could not be asked for";
}

bool ShownDetails::publishedAgain(const sMakeCheckStruct& record) {
    name(record);
    m_askAgain = m_kind != DetailKind::none;
    return askAgain();
}

bool ShownDetails::awaited() const {
    return std::any_of(m_unanswered.begin(), m_unanswered.end(),
                       [this](const Request& request) { return m_key == request.key; });
}

// ---- Answers ----

bool ShownDetails::takes(DetailKind kind, const std::optional<std::string_view>& key) {
    const auto answers = [&](const Request& request) {
        return request.kind == kind && (!key || request.key == *key);
    };
    const auto request = std::find_if(m_unanswered.begin(), m_unanswered.end(), answers);
    // Without a key it may be for any request of its kind that is still unanswered.
    const bool ours = std::all_of(m_unanswered.begin(), m_unanswered.end(), [&](const auto& each) {
        return !answers(each) || m_key == each.key;
    });
    if (request != m_unanswered.end()) m_unanswered.erase(request);
    return m_asked.key && m_kind == kind && (key ? m_key == *key : ours);
}

void ShownDetails::refused(const AnswerError& error) {
    m_error = error.text.empty() ? "error " + std::to_string(error.code) : error.text;
    m_news = "not shown: " + m_error;
    m_state = State::refused;
}

bool ShownDetails::shown(std::vector<DetailGroup>& groups) {
    const std::size_t print = printOf(groups);
    if (m_print == 0) m_print = print;
    m_changedSince = print != m_print;
    m_news = m_changedSince ? "changed since you opened it" : "";
    m_state = State::shown;
    m_received.clear();
    forEachField(groups,
                 [this](const sMCListStruct& row) { m_received[row.mnemonic] = row.value; });
    if (editCount() != 0) putEdits(groups);
    return std::exchange(m_shownKey, m_key) != m_key;
}

// An edit of a field that the answer does not carry any more gets a row of its own: what an update
// sends is always visible.
void ShownDetails::putEdits(std::vector<DetailGroup>& groups) {
    std::vector<int> left;
    for (const auto& [mnemonic, value] : m_asked.modifiedValues)
        if (!m_received.contains(mnemonic)) left.push_back(mnemonic);
    if (groups.empty()) groups.emplace_back();
    for (const int mnemonic : left) {
        sMCListStruct& row = groups.back().rows.emplace_back();
        row.caption = captionOf(mnemonic);
        row.mnemonic = mnemonic;
    }
    forEachField(groups, [this](sMCListStruct& row) {
        const auto edit = m_asked.modifiedValues.find(row.mnemonic);
        if (edit == m_asked.modifiedValues.end()) return;
        row.received = std::exchange(row.value, edit->second);
        row.edited = true;
        row.overOlder = m_typedOver[row.mnemonic] != row.received;
    });
}

// ---- Edits ----

void ShownDetails::keepEdit(int mnemonic, std::string value) {
    m_typedOver.try_emplace(mnemonic, m_received[mnemonic]);
    m_asked.modifiedValues[mnemonic] = std::move(value);
}

void ShownDetails::editsEnded() {
    m_asked.modifiedValues.clear();
    m_typedOver.clear();
}

std::string ShownDetails::editsText() const {
    return std::to_string(editCount()) +
           (editCount() == 1 ? " edited value of " : " edited values of ") + m_name;
}

// ---- What the list says ----

std::string ShownDetails::emptyText() const {
    switch (m_state) {
        case State::none:
            break;
        case State::shown:  // the answer has fields, and none that makes a row
            return "The details of " + m_name + " have nothing to show";
        case State::waiting:
            return "Waiting for the details of " + m_name;
        case State::withoutDetails:
            return m_name + ": changes of this kind have no details";
        case State::notSent:
            return "The details of " + m_name + " could not be asked for";
        case State::refused:
            return "No details of " + m_name + ": " + m_error;
    }
    return "Double-click a change, or press Enter on it, to see its details";
}

DetailsCaption ShownDetails::caption() const {
    std::string title(kTitle);
    if (!m_name.empty()) title += ": " + m_name;
    if (!m_news.empty()) title += " (" + m_news + ")";
    if (m_dimmed) title += " - not selected";
    if (m_dimmed && editCount() != 0) title += ", " + std::to_string(editCount()) + " unsent";
    return {title, emptyText(), m_dimmed};
}

}  // namespace mc
