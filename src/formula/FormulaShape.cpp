// SPDX-License-Identifier: MIT
#include "formula/FormulaShape.h"

#include <algorithm>
#include <string>

#include "formula/FormulaFault.h"

namespace planview {

namespace {

constexpr const char* FoldIt = "Put it into SUM, MIN, MAX or AVERAGE.";

/// Two parts of an expression fit if they have the same number of lines (periods) or one of them has only one (none).
int Fitting(int left, int right, int neutral, int node, const char* what) {
    if (left != neutral && right != neutral && left != right) {
        throw FormulaFault(node,
                           "Areas of " + std::to_string(left) + " and of " + std::to_string(right) + " " + what +
                               " do not fit each other.",
                           std::string("Take areas of the same size, or put them into SUM, MIN, MAX or AVERAGE."));
    }
    return std::max(left, right);
}

class ShapeReader {
public:
    explicit ShapeReader(bool oneValue) : oneValue_(oneValue) {}

    [[nodiscard]] FormulaShape Of(const FormulaExpression& expression, bool inFold) const {
        if (expression.IsOperand()) {
            if (oneValue_ && !inFold && expression.perPeriod) {
                throw FormulaFault(expression.node, "It has a value for each period, where one value is needed.",
                                   FoldIt);
            }
            return OfOperand(expression);
        }
        if (oneValue_ && expression.operation == FormulaOperation::Last) {
            throw FormulaFault(expression.node, "It looks back from a period, where one value is needed.",
                               "Give the value to a line.");
        }
        FormulaShape shape;
        for (const FormulaExpression& argument : expression.arguments) {
            const FormulaShape inner = Of(argument, inFold || expression.IsFold());
            if (expression.IsFold()) {
                if (!argument.IsOperand() && inner.areaPeriods > 0) {
                    throw FormulaFault(argument.node, "An area with periods stands alone in a function.",
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
    static FormulaShape OfOperand(const FormulaExpression& operand) {
        FormulaShape shape;
        shape.lines = operand.IsArea() ? static_cast<int>(operand.lines.size()) : 1;
        if (operand.operation == FormulaOperation::Area && operand.range.HasPeriods()) {
            shape.areaPeriods = operand.range.lastPeriod - operand.range.firstPeriod + 1;
        }
        return shape;
    }

    bool oneValue_;
};

}  // namespace

FormulaShape ShapeOf(const FormulaExpression& expression, bool oneValue) {
    return ShapeReader(oneValue).Of(expression, false);
}

void CheckOneLine(const FormulaExpression& expression, const char* what) {
    const FormulaShape shape = ShapeOf(expression, false);
    if (shape.lines != 1 || shape.areaPeriods > 0) {
        throw FormulaFault(expression.node, what, FoldIt);
    }
}

}  // namespace planview
