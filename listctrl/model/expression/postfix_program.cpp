#include "listctrl/model/expression/postfix_program.h"

#include <algorithm>
#include <array>
#include <exception>

#include "text/characters.h"
#include "text/number_text.h"

namespace mc {

namespace {

// Reads the tokens of an infix text and makes them steps in postfix order.
class InfixReader {
public:
    InfixReader(PostfixSteps& steps, std::string_view text, std::span<const std::size_t> slots,
                std::size_t from)
        : m_steps(steps), m_text(text), m_slots(slots), m_at(from) {
        while (m_slot < m_slots.size() && m_slots[m_slot] < from) ++m_slot;
    }

    // False: unbalanced parentheses.
    bool read() {
        for (; m_at < m_text.size(); ++m_at)
            if (!isWhiteSpace(m_text[m_at]) && !readToken()) return false;
        while (!m_waiting.empty() && m_waiting.back()) emitWaiting();
        return m_waiting.empty();
    }

    bool slotsAreSeparate() const { return m_slotsAreSeparate; }

private:
    // Leaves m_at on the token's last character.
    bool readToken() {
        const char first = m_text[m_at];
        if (first == '(') {
            m_waiting.push_back(nullptr);
        } else if (first == ')') {
            if (!close()) return false;
        } else {
            readOperatorOrOperand();
        }
        m_previous = m_at;
        m_opened = first == '(';
        return true;
    }

    bool close() {
        while (!m_waiting.empty() && m_waiting.back()) emitWaiting();
        if (m_waiting.empty()) return false;
        m_waiting.pop_back();
        return true;
    }

    void readOperatorOrOperand() {
        const Operator* found = operatorAt(m_text.substr(m_at));
        if (found && !inOperandPosition())
            readBinary(*found);
        else
            readOperand(found != nullptr);
    }

    // Looks at one character only: behind "<=" the "=" alone is no operator, so a sign there is
    // binary.
    bool inOperandPosition() const {
        return m_previous == kNowhere || operatorAt(m_text.substr(m_previous));
    }

    void readBinary(const Operator& found) {
        // Without a left operand (nothing came so far but empty parentheses) there is a 0, too.
        if (m_opened || !m_emitted) m_steps.push(0.0);
        m_emitted = true;
        while (!m_waiting.empty() && m_waiting.back() &&
               m_waiting.back()->precedence >= found.precedence)
            emitWaiting();
        m_waiting.push_back(&found);
        m_at += found.spelling.size() - 1;
    }

    void readOperand(bool signedOperand) {
        const std::string_view text = m_text.substr(m_at, operandLength(m_text.substr(m_at)));
        const std::size_t end = m_at + text.size();
        const std::size_t slot = m_slot;
        while (m_slot < m_slots.size() && m_slots[m_slot] < end) ++m_slot;
        if (m_slot == slot) {
            addOperand(text, signedOperand);
        } else if (text == "0" || text == "+0" || text == "-0") {
            m_steps.push(text[0] == '-' ? -1.0 : 1.0, slot);
        } else {
            m_slotsAreSeparate = false;
        }
        m_emitted = true;
        m_at = end - 1;
    }

    // One that is spelled like an operator (the "*" of "2*-3") acts as one here.
    void addOperand(std::string_view text, bool wrapped) {
        const Operator* found = wrapped ? nullptr : operatorAt(text);
        if (found) return m_steps.apply(*found);
        const auto number = readWholeNumber(text);
        if (!number) return m_steps.fail(EvaluationStatus::badOperand);
        m_steps.push(*number);
    }

    void emitWaiting() {
        m_steps.apply(*m_waiting.back());
        m_waiting.pop_back();
    }

    static constexpr auto kNowhere = static_cast<std::size_t>(-1);

    PostfixSteps& m_steps;
    std::string_view m_text;
    std::span<const std::size_t> m_slots;
    std::size_t m_at;
    std::size_t m_slot = 0;             // the next
    std::size_t m_previous = kNowhere;  // the last character of the last token
    bool m_opened = false;              // the last token was an opening parenthesis
    bool m_emitted = false;             // an operand, at least
    bool m_slotsAreSeparate = true;
    std::vector<const Operator*> m_waiting;  // null: an opening parenthesis
};

}  // namespace

PostfixProgram::PostfixProgram(std::string_view infix, std::span<const std::size_t> slots,
                               std::size_t from) {
    InfixReader reader(m_steps, infix, slots, from);
    m_steps.end(reader.read());
    m_slotsAreSeparate = reader.slotsAreSeparate();
}

void PostfixSteps::apply(const Operator& found) {
    if (m_depth < 2) return fail(EvaluationStatus::unbalanced);
    if (m_status != EvaluationStatus::success) return;
    m_steps.push_back({found.apply, kNoSlot, 0.0});
    --m_depth;
}

void PostfixSteps::push(double number, std::size_t slot) {
    if (m_status != EvaluationStatus::success) return;
    m_steps.push_back({nullptr, slot, number});
    m_deepest = std::max(m_deepest, ++m_depth);
}

// Only the first failure counts: run() never gets beyond it.
void PostfixSteps::fail(EvaluationStatus status) {
    if (m_status == EvaluationStatus::success) m_status = status;
}

void PostfixSteps::end(bool balanced) {
    if (!balanced) {
        m_steps.clear();
        m_status = EvaluationStatus::unbalanced;
    } else if (m_status == EvaluationStatus::success && m_depth != 1) {
        m_status = EvaluationStatus::invalid;
    }
}

Evaluation PostfixSteps::run(std::span<const double> values) const {
    std::array<double, 16> few;
    std::vector<double> many;
    if (m_deepest > few.size()) many.resize(m_deepest);
    double* const bottom = many.empty() ? few.data() : many.data();
    double* top = bottom;
    for (const Step& step : m_steps) {
        if (!step.apply) {
            *top++ = step.slot == kNoSlot ? step.number : step.number * values[step.slot];
        } else {
            --top;
            if (!step.apply(top[-1], top[0])) return {EvaluationStatus::invalid, 0.0};
        }
    }
    return {m_status, m_status == EvaluationStatus::success ? *bottom : 0.0};
}

Evaluation evaluateExpression(std::string_view infix) {
    try {
        return PostfixProgram(infix).run();
    } catch (const std::exception&) {
        return {EvaluationStatus::invalid, 0.0};
    }
}

}  // namespace mc
