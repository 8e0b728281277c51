#include "workbench/model/shown_details.h"

#include <utility>

#include "link/model/functionality.h"

namespace mc {
namespace {

constexpr std::string_view kTitle = "Maker Checker Details";
constexpr char kAskedAgain[] = "published again, asking for it";

// The parts that are not empty, with ", " between them.
std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        if (!text.empty() && !part.empty()) text += ", ";
        text += part;
    }
    return text;
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
    m_about.key = record.key;
    m_about.kind = kind != nullptr ? kind->details : DetailKind::none;
    m_about.name = nameOf(record);
}

void ShownDetails::open(const sMakeCheckStruct& record) {
    forget();
    name(record);
    if (m_about.kind == DetailKind::none) m_state = State::withoutDetails;
}

void ShownDetails::forget() {
    m_edits.forget();
    m_asked = {};
    m_about = {};
    m_news.clear();
    m_state = State::none;
    m_askAgain = m_dimmed = false;
    m_answers.opened();
}

// What asks for memory comes first.
void ShownDetails::requested() {
    std::string news = kAskedAgain;
    m_unanswered.add(*m_about.key, m_about.kind);
    if (m_state == State::shown)
        m_news = std::move(news);
    else
        m_state = State::waiting;
    m_askAgain = false;
}

void ShownDetails::notSent() {
    m_unanswered.dropLast();
    if (m_state == State::waiting)
        m_state = State::notSent;
    else
        m_news = "published again, but it could not be asked for";
}

bool ShownDetails::publishedAgain(const sMakeCheckStruct& record) {
    name(record);
    m_askAgain = m_about.kind != DetailKind::none;
    if (m_askAgain && m_state == State::shown) m_news = kAskedAgain;  // also while one is awaited
    return askAgain();
}

// ---- Answers ----

bool ShownDetails::takes(DetailKind kind, const std::optional<std::string_view>& key) {
    const bool ours = m_unanswered.answered(kind, key, m_about.key);
    return m_asked.key && m_about.kind == kind && ours;
}

void ShownDetails::refused(const AnswerError& error) {
    m_error = error.text.empty() ? "error " + std::to_string(error.code) : error.text;
    m_news = "not shown: " + m_error;
    m_state = State::refused;
}

bool ShownDetails::shown(std::vector<DetailGroup>& groups) {
    m_news = m_answers.compare(groups) ? "changed since you opened it" : "";
    m_state = State::shown;
    m_edits.putInto(groups);
    return m_answers.shown(m_about.key);
}

// ---- Edits ----

std::string ShownDetails::editsText() const {
    return std::to_string(m_edits.count()) +
           (m_edits.count() == 1 ? " edited value of " : " edited values of ") + m_about.name;
}

// ---- What the list says ----

std::string ShownDetails::emptyText() const {
    switch (m_state) {
        case State::none:
            break;
        case State::shown:  // the answer has fields, and none that makes a row
            return "The details of " + m_about.name + " have nothing to show";
        case State::waiting:
            return "Waiting for the details of " + m_about.name;
        case State::withoutDetails:
            return m_about.name + ": changes of this kind have no details";
        case State::notSent:
            return "The details of " + m_about.name + " could not be asked for";
        case State::refused:
            return "No details of " + m_about.name + ": " + m_error;
    }
    return "Double-click a change, or press Enter on it, to see its details";
}

DetailsCaption ShownDetails::caption() const {
    std::string title(kTitle);
    if (!m_about.name.empty()) title += ": " + m_about.name;
    if (!m_news.empty()) title += " (" + m_news + ")";
    if (m_dimmed) title += " - not selected";
    if (m_dimmed && m_edits.count() != 0)
        title += ", " + std::to_string(m_edits.count()) + " unsent";
    return {title, emptyText(), m_dimmed};
}

}  // namespace mc
