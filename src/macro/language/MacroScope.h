// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formula/FormulaParser.h"
#include "formula/PlanningTable.h"

namespace planview {

/// What the names in a macro stand for, as far as it has been read.
class MacroScope final : public FormulaScope {
public:
    MacroScope(const FormulaTokens& source, const PlanningTable& planning) : FormulaScope(source), table(planning) {}

    const PlanningTable& table;
    /// What "SELECTED" stands for.
    std::optional<int> selectedLine;
    /// The line that a statement gives its value, for MEMBERS; none where it is not one line of the table.
    std::optional<int> assignedLine;
    /// Indexes of the macro's own lines, areas and elements by name.
    std::map<std::string, std::vector<int>, std::less<>> ownLines;
    std::map<std::string, std::vector<int>, std::less<>> ownAreas;
    std::map<std::string, int, std::less<>> ownElements;

    [[nodiscard]] FormulaExpression Operand(int token) const override;
    [[nodiscard]] FormulaExpression Members(int token) const override;

    /// The range that an operand names. Throws FormulaFault.
    [[nodiscard]] PlanningRange RangeOf(int token) const;
    /// The lines of the range without text lines. Throws FormulaFault if none is left.
    [[nodiscard]] std::vector<int> LinesOf(int token, const PlanningRange& range) const;
    /// The name of an own line, element or area. Throws FormulaFault if it has none.
    [[nodiscard]] std::string OwnNameOf(int token) const;

private:
    [[nodiscard]] FormulaExpression TableLines(FormulaOperation operation, int token) const;
    [[nodiscard]] FormulaExpression Own(FormulaOperation operation, int token,
                                        const std::map<std::string, std::vector<int>, std::less<>>& known) const;
    [[nodiscard]] FormulaExpression OwnElement(int token) const;
};

}  // namespace planview
