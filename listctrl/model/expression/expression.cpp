#include "listctrl/model/expression/expression.h"

#include <array>
#include <exception>
#include <memory_resource>
#include <utility>

#include "text/expression_pieces.h"
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

CheckedProgram::CheckedProgram(std::string_view infix, std::span<const std::size_t> slots)
    : m_whole(infix, slots) {
    const std::size_t slash = infix.find('/');
    if (slash != std::string_view::npos) m_divisor.emplace(infix, slots, slash + 1);
}

bool CheckedProgram::slotsAreSeparate() const {
    return m_whole.slotsAreSeparate() && (!m_divisor || m_divisor->slotsAreSeparate());
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
    std::string infix;
    std::vector<std::size_t> slots;
    for (const ExpressionPiece& piece : expressionPieces(expression)) {
        if (piece.isReference) {
            m_references.push_back({std::exchange(m_tail, {}), referencedColumn(piece.text)});
            slots.push_back(infix.size());
            infix += '0';
        } else {
            m_tail += piece.text;
            infix += piece.text;
        }
    }
    m_steps.emplace(infix, slots);
    if (!m_steps->slotsAreSeparate()) m_steps.reset();
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
