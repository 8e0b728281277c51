// Computed cells once more, in the plainest way: each row as text, from substitution to the postfix
// text and its evaluation, nothing kept. Slow on purpose; the tests, the fuzz target and the
// benchmark hold the real one against it.
#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stack>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/expression/expression.h"

namespace mc {

namespace reference {

struct Level {
    int precedence;
    std::vector<std::string> spellings;
};

// The level of an operator; null: there is none of that spelling.
inline const Level* lookUp(const std::string& spelling) {
    static const std::vector<Level> levels = {{19, {"*", "/", "\\"}},
                                              {18, {"%"}},
                                              {17, {"<<", ">>"}},
                                              {16, {"-", "+"}},
                                              {15, {"^", "&", "|", "!|", "!&"}},
                                              {14, {"&&", "||"}},
                                              {13, {"==", "<", ">", ">=", "!=", "<="}}};
    for (const Level& level : levels)
        if (std::ranges::find(level.spellings, spelling) != level.spellings.end()) return &level;
    return nullptr;
}

// The operator that the run of its characters is; empty: none.
inline std::string operatorAt(const std::string& text, std::size_t at) {
    const std::string run = text.substr(at, text.find_first_not_of("<>=*/%+-^&|\\", at) - at);
    return lookUp(run) != nullptr ? run : "";
}

inline bool isBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

inline std::string operandAt(const std::string& text, std::size_t at) {
    std::string operand(1, text[at++]);
    while (at < text.size() &&
           (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '.'))
        operand += text[at++];
    return operand;
}

inline bool inOperandPosition(const std::string& text, std::size_t at) {
    while (at > 0)
        if (!isBlank(text[--at])) return !operatorAt(text, at).empty();
    return true;
}

inline int precedenceOf(const std::string& token) {
    const Level* found = lookUp(token);
    return found == nullptr ? 1 : found->precedence;
}

inline int toPostfix(const std::string& infix, std::string& postfix) {
    std::stack<std::string> waiting;
    const auto popTop = [&] {
        postfix += " " + waiting.top();
        waiting.pop();
    };
    bool afterShortOperator = false;
    std::size_t at = 0;
    while (at < infix.size()) {
        if (isBlank(infix[at])) {
            ++at;
        } else if (infix[at] == '(') {
            waiting.emplace("(");
            afterShortOperator = true;
            ++at;
        } else if (infix[at] == ')') {
            while (!waiting.empty() && waiting.top() != "(") popTop();
            if (waiting.empty()) return 1;
            waiting.pop();
            afterShortOperator = false;
            ++at;
        } else {
            const std::string spelling = operatorAt(infix, at);
            if (spelling.empty() || inOperandPosition(infix, at)) {
                const std::string operand = operandAt(infix, at);
                postfix += spelling.empty() ? " " + operand : " (" + operand + ")";
                afterShortOperator = false;
                at += operand.size();
            } else {
                if (postfix.empty() || afterShortOperator) postfix += " 0";
                while (!waiting.empty() && waiting.top() != "(" &&
                       precedenceOf(waiting.top()) >= precedenceOf(spelling))
                    popTop();
                waiting.push(spelling);
                afterShortOperator = spelling.size() == 1;
                at += spelling.size();
            }
        }
    }
    while (!waiting.empty()) {
        if (waiting.top() == "(") return 1;
        popTop();
    }
    return 0;
}

// The processor's own truncation.
inline int integer(double value) {
    return _mm_cvttsd_si32(_mm_set_sd(value));
}

inline std::optional<double> apply(const std::string& op, double a, double b) {
    const int i = integer(a), k = integer(b);
    const unsigned shift = static_cast<unsigned>(k) % 32;
    if (op == "*") return a * b;
    if (op == "/") return a / b;
    if (op == "\\") return b == 0 ? std::nullopt : std::optional<double>(integer(a / b));
    if (op == "%" && k == 0) return std::nullopt;
    if (op == "%") return k == -1 ? 0 : i % k;
    if (op == "<<") return static_cast<int>(static_cast<unsigned>(i) << shift);
    if (op == ">>") return i >> shift;
    if (op == "-") return a - b;
    if (op == "+") return a + b;
    if (op == "^") return i ^ k;
    if (op == "&") return i & k;
    if (op == "|") return i | k;
    if (op == "&&") return a != 0 && b != 0 ? 1 : 0;
    if (op == "||") return a == 0 && b == 0 ? 0 : 1;
    if (op == "==") return a == b ? 1 : 0;
    if (op == "<") return a < b ? 1 : 0;
    if (op == ">") return a > b ? 1 : 0;
    if (op == ">=") return a >= b ? 1 : 0;
    if (op == "<=") return a <= b ? 1 : 0;
    std::abort();  // the three that begin with "!" are never found
}

inline int evaluatePostfix(const std::string& postfix, double& value) {
    std::stack<double> numbers;
    std::size_t at = 0;
    while (at < postfix.size()) {
        if (isBlank(postfix[at]) || postfix[at] == '(' || postfix[at] == ')') {
            ++at;
            continue;
        }
        const std::string spelling = operatorAt(postfix, at);
        if (!spelling.empty() && postfix[at - 1] != '(') {
            if (numbers.size() < 2) return 1;
            const double b = numbers.top();
            numbers.pop();
            const auto result = apply(spelling, numbers.top(), b);
            if (!result) return 4;
            numbers.top() = *result;
            at += spelling.size();
        } else {
            const std::string operand = operandAt(postfix, at);
            char* end = nullptr;
            numbers.push(std::strtod(operand.c_str(), &end));
            if (end != operand.c_str() + operand.size()) return 3;
            at += operand.size();
        }
    }
    if (numbers.size() != 1) return 4;
    value = numbers.top();
    return 0;
}

inline int evaluate(const std::string& infix, double& value) {
    value = 0.0;
    std::string postfix;
    const int status = toPostfix(infix, postfix);
    return status != 0 ? status : evaluatePostfix(postfix, value);
}

// The next piece between quotes; false at the end.
inline bool nextPiece(const std::string& text, std::size_t& at, std::string& piece) {
    while (at < text.size() && text[at] == '"') ++at;
    piece.clear();
    while (at < text.size() && text[at] != '"') piece += text[at++];
    return !piece.empty();
}

// As atoi, which has no result for numbers that are too large: they name no column.
inline int columnOf(const std::string& piece) {
    const long long number = std::strtoll(piece.c_str(), nullptr, 10);
    return static_cast<int>(std::clamp<long long>(number, INT_MIN, INT_MAX));
}

// As atof of a library that knows neither "inf" and "nan" nor hexadecimal digits.
inline double decimalOf(const std::string& text) {
    std::size_t at = 0;
    while (at < text.size() && isBlank(text[at])) ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const bool hexadecimal = text.compare(at, 2, "0x") == 0 || text.compare(at, 2, "0X") == 0;
    const bool word = at < text.size() && std::isalpha(static_cast<unsigned char>(text[at])) != 0;
    return hexadecimal || word ? 0.0 : std::strtod(text.c_str(), nullptr);
}

// What fetches a row's cells.
inline auto fetchFrom(const std::vector<std::string>& cells) {
    return [&cells](int column) -> CellFetch::Result {
        if (column < 0 || static_cast<std::size_t>(column) >= cells.size()) return std::nullopt;
        return cells[static_cast<std::size_t>(column)];
    };
}

template <class Fetch>
std::optional<std::string> substitute(const std::string& expression, Fetch fetch) {
    std::string infix, piece;
    std::size_t at = 0;
    while (nextPiece(expression, at, piece)) {
        infix += piece;
        if (!nextPiece(expression, at, piece)) break;
        const std::optional<std::string_view> cell = fetch(columnOf(piece));
        if (!cell) return std::nullopt;
        const std::string text(*cell);
        infix += decimalOf(text) == 0.0 ? "0" : text;
    }
    return infix;
}

template <class Fetch>
CellOutcome computeCell(const std::string& expression, Fetch fetch, std::string& text) {
    const auto infix = substitute(expression, fetch);
    if (!infix) return CellOutcome::notFetched;
    double value = 0.0;
    const std::size_t slash = infix->find('/');
    if (slash != std::string::npos) {
        if (evaluate(infix->substr(slash + 1), value) >= 3) return CellOutcome::unchanged;
        if (value == 0.0) {
            text = "Divided by ZERO error";
            return CellOutcome::produced;
        }
    }
    if (evaluate(*infix, value) > 3) return CellOutcome::invalid;
    char room[400];
    std::snprintf(room, sizeof room, "%.*lf", 2, std::isnan(value) ? std::fabs(value) : value);
    text = room;
    return CellOutcome::produced;
}

}  // namespace reference

}  // namespace mc
