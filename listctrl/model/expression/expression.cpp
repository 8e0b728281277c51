#include "listctrl/model/expression/expression.h"

#include <algorithm>
#include <array>
#include <exception>
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
    if (plain) return m_steps->run(numbers, text);
    std::pmr::vector<double> values(&memory);
    if (const CheckedProgram* const steps = stepsFor(parts, values))
        return steps->run(values, text);
    return CheckedProgram(substitute(parts)).run({}, text);
} catch (const std::exception&) {
    return CellOutcome::invalid;
}

// A shape has a "0" for each run of digits and points, and a quote behind each part.
const CheckedProgram* CompiledExpression::stepsFor(std::span<const std::string_view> parts,
                                                   std::pmr::vector<double>& values) const {
    constexpr std::size_t kMaxShapes = 64;
    constexpr std::string_view kPlain = "0123456789.";
    std::string shape;
    for (std::string_view part : parts) {
        while (!part.empty()) {
            const std::size_t run = std::min(part.find_first_not_of(kPlain), part.size());
            if (run == 0 && std::string_view("+-,").find(part.front()) == part.npos) return nullptr;
            if (run != 0) {
                const auto number = readPlainNumber(part.substr(0, run));
                if (!number) return nullptr;
                values.push_back(*number);
            }
            shape += run != 0 ? '0' : part.front();
            part.remove_prefix(std::max<std::size_t>(run, 1));
        }
        shape += '"';
    }
    auto known = m_shapes.find(shape);
    if (known == m_shapes.end()) {
        if (m_shapes.size() == kMaxShapes) return nullptr;
        known = m_shapes.emplace(shape, compileShape(shape)).first;
    }
    return known->second ? &*known->second : nullptr;
}

std::optional<CheckedProgram> CompiledExpression::compileShape(std::string_view shape) const {
    std::string infix;
    std::vector<std::size_t> slots;
    for (const Reference& reference : m_references) {
        infix += reference.literal;
        for (; shape.front() != '"'; shape.remove_prefix(1)) {
            if (shape.front() == '0') slots.push_back(infix.size());
            infix += shape.front();
        }
        shape.remove_prefix(1);
    }
    CheckedProgram steps(infix += m_tail, slots);
    if (!steps.slotsAreSeparate()) return std::nullopt;
    return steps;
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
