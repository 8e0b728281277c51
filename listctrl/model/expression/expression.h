// User-defined columns: a cell's text computed from other cells of its row.
//
// How an expression is written: text/expression_pieces.h.
#pragma once

#include <concepts>
#include <cstddef>
#include <map>
#include <memory_resource>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/expression/postfix_program.h"

namespace mc {

// What became of a cell. The caller's text is replaced by `produced` only.
enum class CellOutcome {
    produced,
    notFetched,  // a referenced cell could not be had; the cell keeps its text
    unchanged,   // the text right of the first "/" has no value; the cell keeps its text
    invalid,     // the cell keeps its text; the caller shows kInvalidExpression, never while a list
                 // paints
};

inline constexpr const char* kInvalidExpression = "Invalid Expression,while calculating value";
inline constexpr std::string_view kDividedByZero = "Divided by ZERO error";

// A function that reads a cell of the row at hand by its column, or none. It is asked once for each
// reference, from left to right; the text must stay until it is asked again. Does not own the
// function.
class CellFetch {
public:
    using Result = std::optional<std::string_view>;

    template <std::invocable<int> Function>
    CellFetch(const Function& function)  // NOLINT(google-explicit-constructor)
        : m_function(&function), m_call([](const void* called, int column) -> Result {
              return (*static_cast<const Function*>(called))(column);
          }) {}

    Result operator()(int column) const { return m_call(m_function, column); }

private:
    const void* m_function;
    Result (*m_call)(const void* function, int column);
};

// A whole text, together with the test of its divisor: everything right of its first "/" is
// computed alone and must not be zero. The test is coarse: 1/2+3 is tested with 2+3.
class CheckedProgram {
public:
    explicit CheckedProgram(std::string_view infix, std::span<const std::size_t> slots = {});
    bool slotsAreSeparate() const;
    CellOutcome run(std::span<const double> values, std::string& text) const;

private:
    PostfixProgram m_whole;
    std::optional<PostfixProgram> m_divisor;
};

// An expression, split and turned into steps once, for any number of rows.
//
// A cell goes into the text as it is, or as "0" when it begins with no decimal number but 0. A row
// of plain numbers only (digits and points) runs the steps. Any other cell can change how the text
// falls into tokens (2 minus -5 becomes "2--5"): rows with signs and commas between their digits
// share the steps of their shape (-5 and 1,000 have the shapes "-0" and "0,0"), any other row is
// read as text again. All ways give the same result. One thread.
class CompiledExpression {
public:
    explicit CompiledExpression(std::string_view expression);

    // Computes the cell of one row. May be entered again from `fetch`.
    CellOutcome compute(CellFetch fetch, std::string& text) const;

private:
    struct Reference {
        std::string literal;  // in front of it
        int column;
    };
    // The whole text, with these parts instead of the references.
    std::string substitute(std::span<const std::string_view> parts) const;
    // The steps of the parts' shape, and the values that they take; null when there are none.
    const CheckedProgram* stepsFor(std::span<const std::string_view> parts,
                                   std::pmr::vector<double>& values) const;
    std::optional<CheckedProgram> compileShape(std::string_view shape) const;

    std::vector<Reference> m_references;
    std::string m_tail;                     // the literal text behind the last
    std::optional<CheckedProgram> m_steps;  // none: every row is read as text
    mutable std::map<std::string, std::optional<CheckedProgram>> m_shapes;
};

// Computes one cell of an expression that is used once.
CellOutcome computeCell(std::string_view expression, CellFetch fetch, std::string& text);

}  // namespace mc
