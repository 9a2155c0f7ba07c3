// SPDX-License-Identifier: MIT
#include "macro/language/MacroShape.h"

#include <algorithm>
#include <optional>
#include <set>

#include "formula/FormulaFault.h"

namespace planview {

namespace {

/// No table has more periods.
constexpr auto Furthest = static_cast<int>(MostPeriods);

/// Whether the operand stands for the target's own line: line by line, or with any of its lines inside a function that
/// makes one value of many.
bool IsOwn(const FormulaExpression& operand, const MacroStatement& statement, bool inFold) {
    const bool fits =
        IsOfTable(statement.target)
            ? operand.operation == FormulaOperation::Line || operand.operation == FormulaOperation::Area
            : operand.operation == FormulaOperation::OwnLine || operand.operation == FormulaOperation::OwnArea;
    if (!fits || operand.range.HasPeriods()) {
        return false;
    }
    const std::vector<int>& read = operand.lines;
    if (inFold || read.size() != statement.lines.size()) {
        return std::any_of(read.begin(), read.end(), [&](int line) {
            return std::find(statement.lines.begin(), statement.lines.end(), line) != statement.lines.end();
        });
    }
    const auto [first, second] = std::mismatch(read.begin(), read.end(), statement.lines.begin(),
                                               [](int left, int right) { return left != right; });
    return first != read.end();
}

/// Where in the expression the operand is.
struct ReadContext {
    int from = 0;  ///< the periods by which it is shifted: all from this one
    int to = 0;    ///< to this one
    bool inFold = false;
    bool directlyInFold = false;
};

/// Collects the shifts by which the statement reads the line that it assigns.
void FindOwnReads(FormulaExpression& expression, const MacroStatement& statement, ReadContext at,
                  std::set<int>& shifts) {
    if (expression.IsOperand()) {
        if ((at.from != 0 || at.to != 0) && !at.directlyInFold && IsOwn(expression, statement, at.inFold)) {
            expression.live = true;
            for (int shift = std::max(at.from, -Furthest); shift <= std::min(at.to, Furthest); ++shift) {
                shifts.insert(shift);
            }
            shifts.erase(0);
        }
        return;
    }
    const int periods = static_cast<int>(expression.number);
    const bool runs = expression.operation == FormulaOperation::Cumulate;
    switch (expression.operation) {
        case FormulaOperation::Shift:
            at.from += periods;
            at.to += periods;
            break;
        case FormulaOperation::Last:
            at.from -= periods;
            at.to -= 1;
            break;
        case FormulaOperation::Growth:
            at.from -= 1;  // the period before those of LAST
            break;
        default:
            break;
    }
    at.directlyInFold = expression.IsFold() || runs;
    at.inFold = at.inFold || expression.IsFold() || runs;
    for (FormulaExpression& argument : expression.arguments) {
        FindOwnReads(argument, statement, at, shifts);
    }
}

/// The first period from which the step leads to another one of the periods.
std::optional<int> FirstReaching(const std::vector<int>& periods, int step) {
    for (const int period : periods) {
        if (std::binary_search(periods.begin(), periods.end(), period + step)) {
            return period;
        }
    }
    return std::nullopt;
}

}  // namespace

FormulaShape ShapeOfValue(const MacroStatement& statement, bool perPeriod) {
    const bool oneValue = statement.target == FormulaOperation::OwnElement;
    if (oneValue && perPeriod) {
        throw FormulaFault(statement.node, "It has one value, but its condition decides for each period.",
                           "Move it out of the condition, or compare single values there.");
    }
    return ShapeOf(statement.value, oneValue);
}

void CheckTestShape(const FormulaExpression& test) {
    CheckOneLine(test, "An area cannot be compared.");
}

void FindDirection(MacroStatement& statement, const PlanningTable& table, const std::string& line) {
    std::set<int> shifts;
    FindOwnReads(statement.value, statement, {}, shifts);
    std::optional<int> earlier;
    std::optional<int> later;
    for (const int shift : shifts) {
        std::optional<int>& reaching = shift < 0 ? earlier : later;
        const std::optional<int> first = FirstReaching(statement.periods, shift);
        reaching = reaching && (!first || *reaching < *first) ? reaching : first;
    }
    if (earlier && later) {
        throw FormulaFault(statement.node,
                           line + " needs both its earlier and its later periods: a cycle, in " +
                               table.PeriodCaption(*later) + " first.",
                           "Shift in one direction only, or put the shifted values into a line of the macro first.");
    }
    statement.direction = later ? MacroDirection::Backward : earlier ? MacroDirection::Forward : MacroDirection::Any;
}

}  // namespace planview
