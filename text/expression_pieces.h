// The text of a computed column's expression, taken apart.
//
// A column is its number between double quotes, all else is literal: ` "3"+"5"*2`. The text is
// split at the quotes; a run of quotes is one separator, quotes at the very start separate nothing,
// and the pieces are by turns literal text and references. So an expression that begins with a
// quote begins with literal text all the same: `"3"+"5"` is 3, the column "+" (which is column 0),
// 5.
#pragma once

#include <string_view>
#include <vector>

namespace mc {

struct ExpressionPiece {
    std::string_view quotes;  // in front of it
    std::string_view text;    // empty for quotes at the very end only
    bool isReference;
};

std::vector<ExpressionPiece> expressionPieces(std::string_view expression);

// The column that a reference's text names: a decimal number, read as far as it goes, else 0.
int referencedColumn(std::string_view text);

}  // namespace mc
