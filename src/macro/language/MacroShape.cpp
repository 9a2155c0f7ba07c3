// SPDX-License-Identifier: MIT
#include "macro/language/MacroShape.h"

#include <algorithm>
#include <optional>
#include <set>

#include "macro/language/MacroFault.h"

namespace planview {

namespace {

constexpr const char* FoldIt = "Put it into SUM, MIN, MAX or AVERAGE.";

/// Two parts of an expression fit if they have the same number of lines (periods) or one of them has only one (none).
int Fitting(int left, int right, int neutral, int node, const char* what) {
    if (left != neutral && right != neutral && left != right) {
        throw MacroFault(node,
                         "Areas of " + std::to_string(left) + " and of " + std::to_string(right) + " " + what +
                             " do not fit each other.",
                         std::string("Take areas of the same size, or put them into SUM, MIN, MAX or AVERAGE."));
    }
    return std::max(left, right);
}

class ShapeReader {
public:
    explicit ShapeReader(bool oneValue) : oneValue_(oneValue) {}

    [[nodiscard]] MacroShape Of(const MacroExpression& expression, bool inFold) const {
        if (expression.IsOperand()) {
            if (oneValue_ && !inFold && expression.perPeriod) {
                throw MacroFault(expression.node, "It has a value for each period, where one value is needed.", FoldIt);
            }
            return OfOperand(expression);
        }
        MacroShape shape;
        for (const MacroExpression& argument : expression.arguments) {
            const MacroShape inner = Of(argument, inFold || expression.IsFold());
            if (expression.IsFold()) {
                if (!argument.IsOperand() && inner.areaPeriods > 0) {
                    throw MacroFault(argument.node, "An area with periods stands alone in a function.",
                                     "Take it as an argument of its own.");
                }
                continue;
            }
            shape.lines = Fitting(shape.lines, inner.lines, 1, expression.node, "lines");
            shape.areaPeriods = Fitting(shape.areaPeriods, inner.areaPeriods, 0, expression.node, "periods");
        }
        return shape;
    }

private:
    static MacroShape OfOperand(const MacroExpression& operand) {
        MacroShape shape;
        const bool isArea = operand.operation == MacroOperation::Area || operand.operation == MacroOperation::OwnArea;
        shape.lines = isArea ? static_cast<int>(operand.lines.size()) : 1;
        if (operand.operation == MacroOperation::Area && operand.range.HasPeriods()) {
            shape.areaPeriods = operand.range.lastPeriod - operand.range.firstPeriod + 1;
        }
        return shape;
    }

    bool oneValue_;
};

/// Whether the operand stands for the target's own line: line by line, or with any of its lines inside a function that
/// makes one value of many.
bool IsOwn(const MacroExpression& operand, const MacroStatement& statement, bool inFold) {
    const bool fits =
        IsOfTable(statement.target)
            ? operand.operation == MacroOperation::Line || operand.operation == MacroOperation::Area
            : operand.operation == MacroOperation::OwnLine || operand.operation == MacroOperation::OwnArea;
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
    int shift = 0;  ///< periods
    bool inFold = false;
    bool directlyInFold = false;
};

/// Collects the shifts by which the statement reads the line that it assigns.
void FindOwnReads(MacroExpression& expression, const MacroStatement& statement, ReadContext at, std::set<int>& shifts) {
    if (expression.IsOperand()) {
        if (at.shift != 0 && !at.directlyInFold && IsOwn(expression, statement, at.inFold)) {
            expression.live = true;
            shifts.insert(at.shift);
        }
        return;
    }
    at.shift += expression.operation == MacroOperation::Shift ? static_cast<int>(expression.number) : 0;
    at.directlyInFold = expression.IsFold();
    at.inFold = at.inFold || expression.IsFold();
    for (MacroExpression& argument : expression.arguments) {
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

MacroShape ShapeOfValue(const MacroStatement& statement, bool perPeriod) {
    const bool oneValue = statement.target == MacroOperation::OwnElement;
    if (oneValue && perPeriod) {
        throw MacroFault(statement.node, "It has one value, but its condition decides for each period.",
                         "Move it out of the condition, or compare single values there.");
    }
    return ShapeReader(oneValue).Of(statement.value, false);
}

void CheckTestShape(const MacroExpression& test) {
    const MacroShape shape = ShapeReader(false).Of(test, false);
    if (shape.lines > 1 || shape.areaPeriods > 0) {
        throw MacroFault(test.node, "An area cannot be compared.", FoldIt);
    }
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
        throw MacroFault(statement.node,
                         line + " needs both its earlier and its later periods: a cycle, in " +
                             table.PeriodCaption(*later) + " first.",
                         "Shift in one direction only, or put the shifted values into a line of the macro first.");
    }
    statement.direction = later ? MacroDirection::Backward : earlier ? MacroDirection::Forward : MacroDirection::Any;
}

}  // namespace planview
