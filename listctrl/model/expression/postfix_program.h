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

// The text is read left to right, by operator precedence; operators that bind alike go left to
// right. A sign in front of everything or behind another operator belongs to its operand; a sign
// behind an opening parenthesis takes its operand from 0.
//
// A text may have slots: places of one digit "0" that stand for any plain operand (digits and
// points), whose numbers are handed to run(). Characters fall into tokens by their kind only, so
// the steps are those of the text with the operands themselves in it. Only a slot that is glued to
// characters beside it (5"3" makes one operand of both) has no steps of its own.
//
// Parentheses may be nested to any depth; time and room grow with the text only.
class PostfixProgram {
public:
    // `slots`: the places of the slots in `infix`, ascending. What is in front of `from` is not
    // part of the text.
    explicit PostfixProgram(std::string_view infix, std::span<const std::size_t> slots = {},
                            std::size_t from = 0);

    // False: a slot is glued, and the program must not be run.
    bool slotsStandAlone() const { return m_slotsStandAlone; }

    // `values`: one for each of the slots that the program was made with.
    Evaluation run(std::span<const double> values = {}) const;

private:
    friend class InfixReader;
    struct Step {
        bool (*apply)(double& a, double b);  // null: the step pushes a number
        std::size_t slot;                    // kNoSlot: the number itself
        double number;                       // else -1 or 1, its sign
    };
    static constexpr auto kNoSlot = static_cast<std::size_t>(-1);

    void addOperand(std::string_view text, bool wrapped);
    void addOperator(const Operator& found);
    void push(double number, std::size_t slot = kNoSlot);
    void endWith(EvaluationStatus status);

    std::vector<Step> m_steps;  // up to the first that fails whatever the slots hold
    EvaluationStatus m_status = EvaluationStatus::success;  // when all steps went well
    std::size_t m_depth = 0;
    std::size_t m_deepest = 0;
    bool m_slotsStandAlone = true;
};

// The value of an infix text without slots.
Evaluation evaluateExpression(std::string_view infix);

}  // namespace mc
