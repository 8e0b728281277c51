#include "text/expression_pieces.h"

#include <algorithm>

#include "text/read_number.h"

namespace mc {

std::vector<ExpressionPiece> expressionPieces(std::string_view expression) {
    std::vector<ExpressionPiece> pieces;
    for (bool isReference = false; !expression.empty(); isReference = !isReference) {
        const auto start = std::min(expression.find_first_not_of('"'), expression.size());
        const auto end = std::min(expression.find('"', start), expression.size());
        const std::string_view text = expression.substr(start, end - start);
        pieces.push_back({expression.substr(0, start), text, isReference && !text.empty()});
        expression.remove_prefix(end);
    }
    return pieces;
}

int referencedColumn(std::string_view text) {
    return integerOf(text);
}

}  // namespace mc
