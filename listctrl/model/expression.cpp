#include "listctrl/model/expression.h"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <memory_resource>

#include "listctrl/model/number_text.h"

namespace {
// What a cell puts into the text, and its number when that is a plain operand.
struct Contribution {
    std::string_view text;
    std::optional<double> number;
};

Contribution contributionOf(std::string_view cell) {
    if (const auto number = readPlainNumber(cell)) {
        if (*number == 0.0) return {"0", 0.0};
        return {cell, number};
    }
    if (leadingNumber(cell) == 0.0) return {"0", 0.0};
    return {cell, std::nullopt};
}
}  // namespace

std::vector<std::string_view> expressionPieces(std::string_view expression) {
    std::vector<std::string_view> pieces;
    std::size_t begin = expression.find_first_not_of('"');
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(expression.find('"', begin), expression.size());
        pieces.push_back(expression.substr(begin, end - begin));
        begin = expression.find_first_not_of('"', end);
    }
    return pieces;
}

int referencedColumn(std::string_view text) {
    const auto number = std::ranges::find_if_not(text, isWhiteSpace);
    text.remove_prefix(static_cast<std::size_t>(number - text.begin()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    constexpr std::int64_t kLargest = std::numeric_limits<int>::max();
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        value = std::min(value * 10 + (c - '0'), kLargest);
    }
    return static_cast<int>(negative ? -value : value);
}

CheckedProgram::CheckedProgram(std::string_view infix, std::span<const std::size_t> slots)
    : m_whole(infix, slots) {
    const std::size_t slash = infix.find('/');
    if (slash != std::string_view::npos) m_divisor.emplace(infix, slots, slash + 1);
}

bool CheckedProgram::slotsStandAlone() const {
    return m_whole.slotsStandAlone() && (!m_divisor || m_divisor->slotsStandAlone());
}

CellOutcome CheckedProgram::run(std::span<const double> values, std::string& text) const {
    if (m_divisor) {
        const Evaluation divisor = m_divisor->run(values);
        if (divisor.status >= EvaluationStatus::badOperand) return CellOutcome::unchanged;
        if (divisor.value == 0.0) {
            text = kDividedByZero;
            return CellOutcome::produced;
        }
    }
    const Evaluation whole = m_whole.run(values);
    if (whole.status == EvaluationStatus::invalid) return CellOutcome::invalid;
    text.clear();
    appendTwoDecimals(whole.value, text);
    return CellOutcome::produced;
}

CompiledExpression::CompiledExpression(std::string_view expression) {
    const auto pieces = expressionPieces(expression);
    std::string infix;
    std::vector<std::size_t> slots;
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2) {
        m_references.push_back({std::string(pieces[i]), referencedColumn(pieces[i + 1])});
        infix += pieces[i];
        slots.push_back(infix.size());
        infix += '0';
    }
    if (pieces.size() % 2 == 1) m_tail = pieces.back();
    infix += m_tail;
    m_literalSize = infix.size() - slots.size();
    m_steps.emplace(infix, slots);
    if (!m_steps->slotsStandAlone()) m_steps.reset();
}

CellOutcome CompiledExpression::compute(CellFetch fetch, std::string& text) const try {
    // The usual row takes no memory from the heap; each level of nested columns has its own room.
    std::array<std::byte, 512> room;
    std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
    std::pmr::string infix(&memory);
    std::pmr::vector<double> values(&memory);
    values.reserve(m_references.size());
    infix.reserve(m_literalSize + 16 * m_references.size());
    bool plain = m_steps.has_value();
    for (const Reference& reference : m_references) {
        const auto cell = fetch(reference.column);
        if (!cell) return CellOutcome::notFetched;
        const Contribution part = contributionOf(*cell);
        infix += reference.literal;
        infix += part.text;
        values.push_back(part.number.value_or(0.0));
        plain = plain && part.number;
    }
    if (plain) return m_steps->run(values, text);
    infix += m_tail;
    return CheckedProgram(infix).run({}, text);
} catch (const std::exception&) {
    return CellOutcome::invalid;
}

CellOutcome computeCell(std::string_view expression, CellFetch fetch, std::string& text) {
    return CompiledExpression(expression).compute(fetch, text);
}
