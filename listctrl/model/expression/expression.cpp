#include "listctrl/model/expression/expression.h"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <memory_resource>

#include "text/number_text.h"
#include "text/read_number.h"

namespace mc {
namespace {
// Whether the cell counts as 0, which is put into the text as "0". Cells are read as decimal
// numbers: "INFY" and "NANDA01" are names, not infinity and no number.
bool isZero(std::string_view cell, const std::optional<double>& plainNumber) {
    return (plainNumber ? *plainNumber : numberOf(cell)) == 0.0;
}

using Memory = std::pmr::monotonic_buffer_resource;

template <class T>
std::span<T> roomFor(std::size_t count, Memory& memory) {
    return {static_cast<T*>(memory.allocate(count * sizeof(T), alignof(T))), count};
}

// A fetched text stays only until the next one is fetched.
std::string_view copyOf(std::string_view text, Memory& memory) {
    const std::span<char> copy = roomFor<char>(text.size(), memory);
    text.copy(copy.data(), copy.size());
    return {copy.data(), copy.size()};
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
    m_steps.emplace(infix, slots);
    if (!m_steps->slotsStandAlone()) m_steps.reset();
}

CellOutcome CompiledExpression::compute(CellFetch fetch, std::string& text) const try {
    // The usual row takes no memory from the heap; each level of nested columns has its own room.
    std::array<std::byte, 512> room;
    Memory memory(room.data(), room.size());
    const std::span parts = roomFor<std::string_view>(m_references.size(), memory);
    const std::span numbers = roomFor<double>(m_references.size(), memory);
    bool plain = m_steps.has_value();
    for (std::size_t i = 0; i < m_references.size(); ++i) {
        const auto cell = fetch(m_references[i].column);
        if (!cell) return CellOutcome::notFetched;
        const auto number = readPlainNumber(*cell);
        const bool zero = isZero(*cell, number);
        parts[i] = zero ? "0" : copyOf(*cell, memory);
        numbers[i] = zero ? 0.0 : number.value_or(0.0);
        plain = plain && (zero || number);
    }
    return plain ? m_steps->run(numbers, text) : CheckedProgram(substitute(parts)).run({}, text);
} catch (const std::exception&) {
    return CellOutcome::invalid;
}

std::string CompiledExpression::substitute(std::span<const std::string_view> parts) const {
    std::string infix;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        infix += m_references[i].literal;
        infix += parts[i];
    }
    return infix += m_tail;
}

CellOutcome computeCell(std::string_view expression, CellFetch fetch, std::string& text) {
    return CompiledExpression(expression).compute(fetch, text);
}

}  // namespace mc
