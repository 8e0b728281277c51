// An infix text, turned once into steps on a stack of numbers and then run any number of times.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "listctrl/model/expression/operators.h"

namespace mc {

enum class EvaluationStatus {
    success = 0,
    unbalanced = 1,  // parentheses without a partner, or an operator without two operands
    badOperand = 3,  // an operand that is no number, or only begins with one
    invalid = 4,     // operands left over or none at all, a zero that cannot divide, an exception
};

struct Evaluation {
    EvaluationStatus status = EvaluationStatus::success;
    double value = 0.0;  // 0 unless the status is success
};

// Steps on a stack of numbers: added one after the other, ended once, then run any number of times.
// Behind one that fails whatever the slots hold, none is added.
class PostfixSteps {
public:
    static constexpr auto kNoSlot = static_cast<std::size_t>(-1);

    // With a slot the number is -1 or 1, the sign of its value.
    void push(double number, std::size_t slot = kNoSlot);
    void apply(const Operator& found);
    void fail(EvaluationStatus status);
    // `balanced` false: the text had parentheses without a partner.
    void end(bool balanced);

    Evaluation run(std::span<const double> values) const;

private:
    struct Step {
        bool (*apply)(double& a, double b);  // null: the step pushes a number
        std::size_t slot;                    // kNoSlot: the step pushes `number`
        double number;
    };

    std::vector<Step> m_steps;
    EvaluationStatus m_status = EvaluationStatus::success;  // when all steps went well
    std::size_t m_depth = 0;
    std::size_t m_deepest = 0;
};

// The text is read left to right, by operator precedence; operators that bind alike go left to
// right. A sign in front of everything or behind another operator belongs to its operand; a sign
// behind an opening parenthesis takes its operand from 0.
//
// A text may have slots: digits "0", each instead of a plain operand (digits and points) that is a
// parameter of run(). How a text falls into tokens depends on the kinds of its characters only, so
// the steps are the same as with the operands themselves in the text. The exception is a slot that
// is joined to characters beside it (5"3" is one operand): such a program must not be run.
//
// Parentheses may be nested to any depth; time and room grow with the text only.
class PostfixProgram {
public:
    // `slots`: the indexes of the slots in `infix`, ascending. The text begins at `from`.
    explicit PostfixProgram(std::string_view infix, std::span<const std::size_t> slots = {},
                            std::size_t from = 0);

    // False: a slot is joined to its neighbours, and the program must not be run.
    bool slotsAreSeparate() const { return m_slotsAreSeparate; }

    // `values`: one for each of the slots that the program was made with.
    Evaluation run(std::span<const double> values = {}) const { return m_steps.run(values); }

private:
    PostfixSteps m_steps;
    bool m_slotsAreSeparate;
};

// The value of an infix text without slots.
Evaluation evaluateExpression(std::string_view infix);

}  // namespace mc
