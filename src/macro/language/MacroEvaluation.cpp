// SPDX-License-Identifier: MIT
#include "macro/language/MacroEvaluation.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "macro/language/MacroFault.h"

namespace planview {

namespace {

using Values = MacroEvaluation::Values;
using Mask = MacroEvaluation::Mask;
using Kind = MacroValueKind;

constexpr MacroValue NoValue{0, Kind::None};

constexpr MacroValue Number(double number) noexcept {
    return {number, Kind::Number};
}

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

}  // namespace

double Rounded(double value, int decimals) noexcept {
    constexpr double Exact = 9007199254740992.0;  // beyond it a double has no decimals
    const double scale = std::pow(10.0, decimals);
    return std::abs(value) * scale < Exact ? std::round(value * scale) / scale : value;
}

/// The running result of SUM, MIN, MAX or AVERAGE for each period.
struct MacroEvaluation::Folding {
    Folding(MacroOperation how, std::size_t count)
        : operation(how), result(count, Number(0)), counts(count, 0), outside(count, 0) {}

    void Take(std::size_t index, MacroValue value) {
        if (!value.IsNumber()) {
            outside[index] = outside[index] != 0 || value.kind != Kind::Empty ? 1 : 0;
            return;
        }
        double& now = result.numbers[index];
        const bool isFirst = counts[index]++ == 0;
        switch (operation) {
            case MacroOperation::Minimum:
                now = isFirst ? value.number : std::min(now, value.number);
                break;
            case MacroOperation::Maximum:
                now = isFirst ? value.number : std::max(now, value.number);
                break;
            default:
                now += value.number;
        }
    }

    /// Adds the single result of another one to every period.
    void TakeAll(const Folding& other) {
        for (std::size_t i = 0; i < counts.size(); ++i) {
            const int before = counts[i];
            if (other.counts[0] > 0) {
                Take(i, other.result.At(0));
                counts[i] = before + other.counts[0];
            }
        }
    }

    void Finish() {
        for (std::size_t i = 0; i < counts.size(); ++i) {
            if (counts[i] == 0) {
                // Empty cells add up to 0.
                result.Set(i, operation == MacroOperation::Sum && outside[i] == 0 ? Number(0) : NoValue);
            } else if (operation == MacroOperation::Average) {
                result.numbers[i] /= counts[i];
            }
        }
    }

    MacroOperation operation;
    Values result;
    std::vector<int> counts;
    Mask outside;  // a value was outside the table
};

Values MacroEvaluation::Of(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    using Operation = MacroOperation;
    switch (expression.operation) {
        case Operation::Constant:
            return {frame.periods.size(), Number(expression.number)};
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

MacroValue MacroEvaluation::Taken(MacroValue value, bool keepEmpty, int line, int period, int node) const {
    if (value.kind == Kind::Text) {
        const std::string text = table_.CellText(line, period);
        const bool isError = text.starts_with('#');  // "#DIV/0!", as spreadsheets name them
        throw MacroFault(node,
                         table_.CellCaption(line, period) +
                             (isError ? " holds the error " + text + "." : " holds a text, not a number."),
                         "Enter a number there, or leave it empty.");
    }
    return value.kind == Kind::Empty && !keepEmpty ? Number(0) : value;
}

const MacroValues& MacroEvaluation::LineOf(const MacroExpression& operand, int line, const Frame& frame) {
    const MacroValues& values = IsOfTable(operand.operation) ? sheet_.TableLine(line) : sheet_.OwnLine(line);
    return &values == frame.own && !operand.live ? *frame.before : values;
}

Values MacroEvaluation::FromLine(const MacroExpression& operand, int line, const Frame& frame, const Mask& mask) {
    const MacroValues& values = LineOf(operand, line, frame);
    const int count = table_.PeriodCount();
    const bool ofItsPeriods = operand.range.HasPeriods() && operand.operation == MacroOperation::Area;
    const std::size_t size = frame.periods.size();
    Values result(size, NoValue);
    for (std::size_t i = 0; i < size; ++i) {
        const int base =
            ofItsPeriods ? operand.range.firstPeriod + frame.firstIndex + static_cast<int>(i) : frame.periods[i];
        const int period = base + frame.shift;
        if (mask[i] != 0 && period >= 0 && period < count) {
            const MacroValue value = values.At(static_cast<std::size_t>(period));
            result.Set(i, value.IsNumber() ? value : Taken(value, frame.keepEmpty, line, period, operand.node));
        }
    }
    return result;
}

Values MacroEvaluation::Operand(const MacroExpression& operand, const Frame& frame, const Mask& mask) {
    if (operand.operation == MacroOperation::OwnElement) {
        const MacroValue value = sheet_.OwnElement(operand.lines.front());
        return {frame.periods.size(), Taken(value, frame.keepEmpty, 0, 0, operand.node)};
    }
    if (operand.operation == MacroOperation::Element) {
        const int line = operand.lines.front();
        const int period = operand.range.firstPeriod;
        const MacroValue value = LineOf(operand, line, frame).At(static_cast<std::size_t>(period));
        const bool needed = std::find(mask.begin(), mask.end(), std::uint8_t{1}) != mask.end();
        return {frame.periods.size(), needed ? Taken(value, frame.keepEmpty, line, period, operand.node) : Number(0)};
    }
    const auto index = static_cast<std::size_t>(operand.lines.size() == 1 ? 0 : frame.line);
    return FromLine(operand, operand.lines[index], frame, mask);
}

void MacroEvaluation::CheckSize(const MacroExpression& expression, const Frame& frame, const Values& values,
                                const Mask& mask) const {
    for (std::size_t i = 0; i < values.Size(); ++i) {
        if (std::isinf(values.numbers[i]) && values.IsNumber(i) && mask[i] != 0) {
            Fail(expression, frame, i, TooLarge);
        }
    }
}

Values MacroEvaluation::Arithmetic(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    Frame plain = frame;
    plain.keepEmpty = false;
    Values left = Of(expression.arguments[0], plain, mask);
    const Values right = Of(expression.arguments[1], plain, mask);
    std::vector<double>& results = left.numbers;
    const std::vector<double>& others = right.numbers;
    for (std::size_t i = 0; i < left.Size(); ++i) {
        left.kinds[i] = right.IsNumber(i) ? left.kinds[i] : Kind::None;
    }
    switch (expression.operation) {
        case MacroOperation::Add:
            std::transform(results.begin(), results.end(), others.begin(), results.begin(), std::plus<>());
            break;
        case MacroOperation::Subtract:
            std::transform(results.begin(), results.end(), others.begin(), results.begin(), std::minus<>());
            break;
        case MacroOperation::Multiply:
            std::transform(results.begin(), results.end(), others.begin(), results.begin(), std::multiplies<>());
            break;
        case MacroOperation::Divide:
            for (std::size_t i = 0; i < left.Size(); ++i) {
                if (others[i] == 0 && mask[i] != 0 && left.IsNumber(i)) {
                    Fail(expression, frame, i, DivisionByZero);
                }
                results[i] /= others[i];
            }
            break;
        default:
            for (std::size_t i = 0; i < left.Size(); ++i) {
                results[i] = Compared(expression.operation, results[i], others[i]);
            }
    }
    CheckSize(expression, frame, left, mask);
    return left;
}

Values MacroEvaluation::Logic(const MacroExpression& expression, const Frame& frame, const Mask& mask) {
    const double decided = expression.operation == MacroOperation::And ? Fails : Holds;
    Values left = Of(expression.arguments[0], frame, mask);
    Mask open = mask;
    for (std::size_t i = 0; i < left.Size(); ++i) {
        open[i] = mask[i] != 0 && !left.At(i).Is(decided) ? 1 : 0;
    }
    const Values right = Of(expression.arguments[1], frame, open);
    for (std::size_t i = 0; i < left.Size(); ++i) {
        if (!left.At(i).Is(decided) && (left.IsNumber(i) || right.At(i).Is(decided))) {
            left.Set(i, right.At(i));
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
    for (std::size_t i = 0; i < test.Size(); ++i) {
        first[i] = mask[i] != 0 && test.At(i).Is(Holds) ? 1 : 0;
        second[i] = mask[i] != 0 && test.At(i).Is(Fails) ? 1 : 0;
    }
    Values result = Of(expression.arguments[1], plain, first);
    const Values otherwise = Of(expression.arguments[2], plain, second);
    for (std::size_t i = 0; i < test.Size(); ++i) {
        if (first[i] == 0) {
            result.Set(i, second[i] != 0 ? otherwise.At(i) : NoValue);
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
    for (double& value : values.numbers) {
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
    CheckSize(expression, frame, folding.result, mask);
    return std::move(folding.result);
}

namespace {

/// The number of lines in an argument of SUM and the like.
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
    const bool allItsCells = argument.operation == MacroOperation::Area && argument.range.HasPeriods();
    const bool gathered = allItsCells || (frame.oneValue && argument.perPeriod);
    std::vector<int> itsPeriods;
    if (allItsCells) {
        for (int period = argument.range.firstPeriod; period <= argument.range.lastPeriod; ++period) {
            itsPeriods.push_back(period);
        }
        inner.shift = 0;
        inner.firstIndex = 0;
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
        for (std::size_t i = 0; i < values.Size(); ++i) {
            gathered ? all.Take(0, values.At(i)) : folding.Take(i, values.At(i));
        }
    }
    folding.TakeAll(all);
}

void MacroEvaluation::Fail(const MacroExpression& expression, const Frame& frame, std::size_t index,
                           const char* what) const {
    std::string where;
    if (frame.statementLine >= 0) {
        where = table_.LineCaption(frame.statementLine);
    }
    if (!frame.oneValue) {
        const int period = std::clamp(frame.periods[index] + frame.shift, 0, table_.PeriodCount() - 1);
        where += (where.empty() ? "" : ", ") + table_.PeriodCaption(period);
    }
    throw MacroFault(expression.node, std::string(what) + (where.empty() ? "." : " in " + where + "."),
                     "Change the values, or leave such periods out by a condition.");
}

}  // namespace planview
