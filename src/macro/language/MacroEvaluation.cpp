// SPDX-License-Identifier: MIT
#include "macro/language/MacroEvaluation.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace planview {

namespace {

using Values = MacroEvaluation::Values;
using Mask = MacroEvaluation::Mask;

constexpr double Holds = 1;
constexpr double Fails = 0;

constexpr const char* DivisionByZero = "Division by zero";
constexpr const char* TooLarge = "A number becomes too large";

double Compared(MacroOperation operation, double left, double right) noexcept {
    switch (operation) {
        case MacroOperation::Equal:
            return left == right ? Holds : Fails;
        case MacroOperation::NotEqual:
            return left != right ? Holds : Fails;
        case MacroOperation::Less:
            return left < right ? Holds : Fails;
        case MacroOperation::LessOrEqual:
            return left <= right ? Holds : Fails;
        case MacroOperation::Greater:
            return left > right ? Holds : Fails;
        default:
            return left >= right ? Holds : Fails;
    }
}

double Rounded(double value, int decimals) noexcept {
    constexpr double Exact = 9007199254740992.0;  // beyond it a double has no decimals
    const double scale = std::pow(10.0, decimals);
    return std::abs(value) * scale < Exact ? std::round(value * scale) / scale : value;
}

}  // namespace

/// What SUM, MIN, MAX or AVERAGE have gathered, for each period.
struct MacroEvaluation::Folding {
    Folding(MacroOperation how, std::size_t count)
        : operation(how), result(count, 0), counts(count, 0), outside(count, 0) {}

    void Take(std::size_t place, double value) {
        if (std::isnan(value)) {
            outside[place] = outside[place] != 0 || !IsEmptyCell(value) ? 1 : 0;
            return;
        }
        double& now = result[place];
        const bool isFirst = counts[place]++ == 0;
        switch (operation) {
            case MacroOperation::Minimum:
                now = isFirst ? value : std::min(now, value);
                break;
            case MacroOperation::Maximum:
                now = isFirst ? value : std::max(now, value);
                break;
            default:
                now += value;
        }
    }

    /// Takes what another one has gathered over all of its periods into each of these.
    void TakeAll(const Folding& other) {
        for (std::size_t i = 0; i < result.size(); ++i) {
            const int before = counts[i];
            if (other.counts[0] > 0) {
                Take(i, other.result[0]);
                counts[i] = before + other.counts[0];
            }
        }
    }

    void Finish() {
        for (std::size_t i = 0; i < result.size(); ++i) {
            if (counts[i] == 0) {
                // Empty cells add up to 0.
                result[i] = operation == MacroOperation::Sum && outside[i] == 0 ? 0 : NoValue();
            } else if (operation == MacroOperation::Average) {
                result[i] /= counts[i];
            }
        }
    }

    MacroOperation operation;
    Values result;
    std::vector<int> counts;
    Mask outside;  // something lay outside the table
};

Values MacroEvaluation::Of(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    using Operation = MacroOperation;
    switch (expression.operation) {
        case Operation::Constant:
            return Values(frame.periods.size(), expression.number);
        case Operation::Line:
        case Operation::Element:
        case Operation::Area:
        case Operation::OwnLine:
        case Operation::OwnElement:
        case Operation::OwnArea:
            return Operand(expression, frame, mask);
        case Operation::Add:
        case Operation::Subtract:
        case Operation::Multiply:
        case Operation::Divide:
        case Operation::Equal:
        case Operation::NotEqual:
        case Operation::Less:
        case Operation::LessOrEqual:
        case Operation::Greater:
        case Operation::GreaterOrEqual:
            return Arithmetic(expression, frame, mask);
        case Operation::And:
        case Operation::Or:
            return Logic(expression, frame, mask);
        case Operation::Sum:
        case Operation::Minimum:
        case Operation::Maximum:
        case Operation::Average:
            return Fold(expression, frame, mask);
        case Operation::If:
            return Choice(expression, frame, mask);
        case Operation::Negate:
        case Operation::Copy:
        case Operation::Shift:
        case Operation::Absolute:
        case Operation::Round:
            break;
    }
    return OneArgument(expression, frame, mask);
}

double MacroEvaluation::Taken(double value, bool keepEmpty, int line, int period, int node) const {
    if (!std::isnan(value)) {
        return value;
    }
    if (IsTextCell(value)) {
        throw MacroFault(node, places_.CellCaption(line, period) + " holds a text, not a number.",
                         "Enter a number there, or leave it empty.");
    }
    return IsEmptyCell(value) ? (keepEmpty ? value : 0) : NoValue();
}

const MacroSheet::Line& MacroEvaluation::LineOf(const MacroExpression& operand, int line, const Frame& frame) {
    const bool onGrid = operand.operation <= MacroOperation::Area;
    const MacroSheet::Line& values = onGrid ? sheet_.GridLine(line) : sheet_.OwnLine(line);
    return &values == frame.own && !operand.live ? *frame.before : values;
}

Values MacroEvaluation::FromLine(const MacroExpression& operand, int line, const Frame& frame, const Mask& mask) {
    const MacroSheet::Line& values = LineOf(operand, line, frame);
    const int count = places_.PeriodCount();
    const bool byPlace = operand.place.HasPeriods() && operand.operation == MacroOperation::Area;
    const std::size_t size = frame.periods.size();
    Values result(size, NoValue());
    for (std::size_t i = 0; i < size; ++i) {
        const int base =
            byPlace ? operand.place.firstPeriod + frame.firstPlace + static_cast<int>(i) : frame.periods[i];
        const int period = base + frame.shift;
        if (mask[i] != 0 && period >= 0 && period < count) {
            result[i] = Taken(values[static_cast<std::size_t>(period)], frame.keepEmpty, line, period, operand.node);
        }
    }
    return result;
}

Values MacroEvaluation::Operand(const MacroExpression& operand, const Frame& frame, const Mask& mask) {
    if (operand.operation == MacroOperation::OwnElement) {
        const double value = sheet_.OwnElement(operand.lines.front());
        return Values(frame.periods.size(), Taken(value, frame.keepEmpty, 0, 0, operand.node));
    }
    if (operand.operation == MacroOperation::Element) {
        const int period = operand.place.firstPeriod;
        const double value = LineOf(operand, operand.lines.front(), frame)[static_cast<std::size_t>(period)];
        const bool needed = std::find(mask.begin(), mask.end(), std::uint8_t{1}) != mask.end();
        return Values(frame.periods.size(),
                      needed ? Taken(value, frame.keepEmpty, operand.lines.front(), period, operand.node) : 0);
    }
    const auto place = static_cast<std::size_t>(operand.lines.size() == 1 ? 0 : frame.line);
    return FromLine(operand, operand.lines[place], frame, mask);
}

Values MacroEvaluation::Arithmetic(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    Frame plain = frame;
    plain.keepEmpty = false;
    Values left = Of(expression.arguments[0], plain, mask);
    const Values right = Of(expression.arguments[1], plain, mask);
    const std::size_t size = left.size();
    switch (expression.operation) {
        case MacroOperation::Add:
            std::transform(left.begin(), left.end(), right.begin(), left.begin(), std::plus<>());
            break;
        case MacroOperation::Subtract:
            std::transform(left.begin(), left.end(), right.begin(), left.begin(), std::minus<>());
            break;
        case MacroOperation::Multiply:
            std::transform(left.begin(), left.end(), right.begin(), left.begin(), std::multiplies<>());
            break;
        case MacroOperation::Divide:
            for (std::size_t i = 0; i < size; ++i) {
                if (right[i] == 0 && mask[i] != 0 && !std::isnan(left[i])) {
                    Fail(expression, frame, i, DivisionByZero);
                }
                left[i] /= right[i];
            }
            break;
        default:
            for (std::size_t i = 0; i < size; ++i) {
                const bool known = !std::isnan(left[i]) && !std::isnan(right[i]);
                left[i] = known ? Compared(expression.operation, left[i], right[i]) : NoValue();
            }
    }
    for (std::size_t i = 0; i < size; ++i) {
        if (std::isinf(left[i]) && mask[i] != 0) {
            Fail(expression, frame, i, TooLarge);
        }
    }
    return left;
}

Values MacroEvaluation::Logic(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    const double decided = expression.operation == MacroOperation::And ? Fails : Holds;
    Values left = Of(expression.arguments[0], frame, mask);
    Mask open = mask;
    for (std::size_t i = 0; i < left.size(); ++i) {
        open[i] = mask[i] != 0 && left[i] != decided ? 1 : 0;
    }
    const Values right = Of(expression.arguments[1], frame, open);
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i] != decided && (!std::isnan(left[i]) || right[i] == decided)) {
            left[i] = right[i];
        }
    }
    return left;
}

Values MacroEvaluation::Choice(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    Frame plain = frame;
    plain.keepEmpty = false;
    const Values test = Of(expression.arguments[0], plain, mask);
    Mask first = mask;
    Mask second = mask;
    for (std::size_t i = 0; i < test.size(); ++i) {
        first[i] = mask[i] != 0 && test[i] == Holds ? 1 : 0;
        second[i] = mask[i] != 0 && test[i] == Fails ? 1 : 0;
    }
    Values result = Of(expression.arguments[1], plain, first);
    const Values otherwise = Of(expression.arguments[2], plain, second);
    for (std::size_t i = 0; i < test.size(); ++i) {
        if (first[i] == 0) {
            result[i] = second[i] != 0 ? otherwise[i] : NoValue();
        }
    }
    return result;
}

Values MacroEvaluation::OneArgument(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    Frame inner = frame;
    if (expression.operation == MacroOperation::Shift) {
        inner.shift += static_cast<int>(expression.number);
    } else if (expression.operation != MacroOperation::Copy) {
        inner.keepEmpty = false;
    }
    Values values = Of(expression.arguments[0], inner, mask);
    for (double& value : values) {
        switch (expression.operation) {
            case MacroOperation::Negate:
                value = -value;
                break;
            case MacroOperation::Absolute:
                value = std::abs(value);
                break;
            case MacroOperation::Round:
                value = Rounded(value, static_cast<int>(expression.number));
                break;
            default:
                break;
        }
    }
    return values;
}

Values MacroEvaluation::Fold(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    Folding folding(expression.operation, frame.periods.size());
    for (const MacroExpression& argument : expression.arguments) {
        FoldIn(folding, argument, frame, mask);
    }
    folding.Finish();
    for (std::size_t i = 0; i < folding.result.size(); ++i) {
        if (std::isinf(folding.result[i]) && mask[i] != 0) {
            Fail(expression, frame, i, TooLarge);
        }
    }
    return std::move(folding.result);
}

namespace {

/// The lines that an argument of SUM and its kin stands for.
int LineCountOf(const MacroExpression& expression) {
    if (expression.IsOperand()) {
        return std::max(1, static_cast<int>(expression.lines.size()));
    }
    int count = 1;
    for (const MacroExpression& argument : expression.arguments) {
        count = expression.IsFold() ? count : std::max(count, LineCountOf(argument));
    }
    return count;
}

}  // namespace

void MacroEvaluation::FoldIn(Folding& folding, const MacroExpression& argument, const Frame& frame, const Mask& mask) {
    Frame inner = frame;
    inner.keepEmpty = true;
    const int lines = LineCountOf(argument);
    const bool allItsCells = argument.operation == MacroOperation::Area && argument.place.HasPeriods();
    const bool gathered = allItsCells || (frame.oneValue && argument.perPeriod);
    std::vector<int> itsPeriods;
    if (allItsCells) {
        for (int period = argument.place.firstPeriod; period <= argument.place.lastPeriod; ++period) {
            itsPeriods.push_back(period);
        }
        inner.shift = 0;
        inner.firstPlace = 0;
    }
    if (gathered) {
        inner.periods = allItsCells ? std::span<const int>(itsPeriods) : std::span<const int>(chosen_);
        inner.oneValue = false;
    }
    if (gathered && std::find(mask.begin(), mask.end(), std::uint8_t{1}) == mask.end()) {
        return;
    }
    const Mask everywhere(gathered ? inner.periods.size() : 0, 1);
    Folding all(folding.operation, 1);
    for (int line = 0; line < lines; ++line) {
        inner.line = line;
        const Values values = Of(argument, inner, gathered ? everywhere : mask);
        for (std::size_t i = 0; i < values.size(); ++i) {
            gathered ? all.Take(0, values[i]) : folding.Take(i, values[i]);
        }
    }
    folding.TakeAll(all);
}

void MacroEvaluation::Fail(const MacroExpression& expression, const Frame& frame, std::size_t place,
                           const char* what) const {
    std::string where;
    if (frame.statementLine >= 0) {
        where = places_.LineCaption(frame.statementLine);
    }
    if (!frame.oneValue) {
        const int period = std::clamp(frame.periods[place] + frame.shift, 0, places_.PeriodCount() - 1);
        where += (where.empty() ? "" : ", ") + places_.PeriodCaption(period);
    }
    throw MacroFault(expression.node, std::string(what) + (where.empty() ? "." : " in " + where + "."),
                     "Change the values, or leave such periods out by a condition.");
}

}  // namespace planview
