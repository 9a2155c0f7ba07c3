// SPDX-License-Identifier: MIT
#include "formula/FormulaEvaluation.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <utility>

#include "formula/FormulaFault.h"

namespace planview {

namespace {

using Operation = FormulaOperation;
using Values = FormulaEvaluation::Values;
using Mask = FormulaEvaluation::Mask;
using Kind = FormulaKind;

constexpr FormulaValue NoValue{0, Kind::None};

constexpr FormulaValue Number(double number) noexcept {
    return {number, Kind::Number};
}

constexpr double Holds = 1;
constexpr double Fails = 0;

double Compared(Operation operation, double left, double right) noexcept {
    switch (operation) {
        case Operation::Equal:
            return left == right ? Holds : Fails;
        case Operation::NotEqual:
            return left != right ? Holds : Fails;
        case Operation::Less:
            return left < right ? Holds : Fails;
        case Operation::LessOrEqual:
            return left <= right ? Holds : Fails;
        case Operation::Greater:
            return left > right ? Holds : Fails;
        default:
            return left >= right ? Holds : Fails;
    }
}

/// With the sign of the divisor, as spreadsheets have it.
double RemainderOf(double value, double divisor) noexcept {
    const double rest = std::fmod(value, divisor);
    return rest != 0 && (rest < 0) != (divisor < 0) ? rest + divisor : rest;
}

bool NeedsAny(const Mask& mask) noexcept {
    return std::find(mask.begin(), mask.end(), std::uint8_t{1}) != mask.end();
}

bool AreNumbers(const FormulaSpan& values, std::size_t from, std::size_t size) noexcept {
    if (!values.kinds) {
        return true;
    }
    unsigned found = 0;  // without a way out early: such a loop runs on vectors
    if (values.step == 1) {
        const Kind* const kinds = values.kinds + from;
        std::uint8_t any = 0;
        for (std::size_t i = 0; i < size; ++i) {
            any = static_cast<std::uint8_t>(any | static_cast<std::uint8_t>(kinds[i]));
        }
        found = any;
    } else {
        for (std::size_t i = 0; i < size; ++i) {
            found |= static_cast<unsigned>(values.KindAt(from + i));
        }
    }
    return found == 0;
}

/// The number of lines in an argument of SUM and the like; 0 where it has none.
int LineCountOf(const FormulaExpression& expression) {
    if (expression.IsOperand()) {
        return expression.IsArea() ? static_cast<int>(expression.lines.size()) : 1;
    }
    int count = 1;
    for (const FormulaExpression& argument : expression.arguments) {
        const int lines = expression.IsFold() ? 1 : LineCountOf(argument);
        if (lines == 0) {
            return 0;
        }
        count = std::max(count, lines);
    }
    return count;
}

}  // namespace

double Rounded(double value, int decimals) noexcept {
    constexpr double Exact = 9007199254740992.0;  // beyond it a double has no decimals
    const double scale = std::pow(10.0, decimals);
    return std::abs(value) * scale < Exact ? std::round(value * scale) / scale : value;
}

Values FormulaEvaluation::Of(const FormulaExpression& expression, const Frame& frame, const Mask& mask) {
    switch (expression.operation) {
        case Operation::Constant:
            return {frame.periods.size(), Number(expression.number)};
        case Operation::Line:
        case Operation::Element:
        case Operation::Area:
        case Operation::OwnLine:
        case Operation::OwnElement:
        case Operation::OwnArea:
        case Operation::Gap:
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
        case Operation::Modulo:
            return Arithmetic(expression, frame, mask);
        case Operation::And:
        case Operation::Or:
            return Logic(expression, frame, mask);
        case Operation::Sum:
        case Operation::Minimum:
        case Operation::Maximum:
        case Operation::Average:
        case Operation::Product:
        case Operation::Count:
            return Fold(expression, frame, mask);
        case Operation::If:
            return Choice(expression, frame, mask);
        case Operation::Cumulate:
            return RunningTotal(expression, frame, mask);
        case Operation::Last:
            return MeanBefore(expression, frame, mask);
        case Operation::Growth:
            return Growth(expression, frame, mask);
        case Operation::Negate:
        case Operation::Copy:
        case Operation::Shift:
        case Operation::Absolute:
        case Operation::Round:
        case Operation::Integer:
        case Operation::Members:
            break;
    }
    return OneArgument(expression, frame, mask);
}

// --- Operands

FormulaValue FormulaEvaluation::Taken(FormulaValue value, bool keepEmpty, int line, int period, int node) const {
    if (value.kind == Kind::Text && table_) {
        const std::string text = table_->CellText(line, period);
        const bool isError = text.starts_with('#');  // "#DIV/0!", as spreadsheets name them
        throw FormulaFault(node,
                           table_->CellCaption(line, period) +
                               (isError ? " holds the error " + text + "." : " holds a text, not a number."),
                           "Enter a number there, or leave it empty.");
    }
    return value.kind == Kind::Empty && !keepEmpty ? Number(0) : value;
}

FormulaSpan FormulaEvaluation::LineOf(const FormulaExpression& operand, int line, const Frame& frame) {
    const FormulaSpan values = IsOfTable(operand.operation) ? source_.TableLine(line) : source_.OwnLine(line);
    const bool isOwn = frame.own && values.numbers == frame.own->numbers.data();
    return isOwn && !operand.live ? frame.before->Span() : values;
}

Values FormulaEvaluation::FromLine(const FormulaExpression& operand, int line, const Frame& frame, const Mask& mask) {
    const FormulaSpan values = LineOf(operand, line, frame);
    const bool ofItsPeriods = operand.range.HasPeriods() && operand.operation == Operation::Area;
    const std::size_t size = frame.periods.size();
    Values result(size, NoValue);
    for (std::size_t i = 0; i < size; ++i) {
        const int base =
            ofItsPeriods ? operand.range.firstPeriod + frame.firstIndex + static_cast<int>(i) : frame.periods[i];
        const int period = base + frame.shift;
        if (mask[i] != 0 && period >= 0 && period < periodCount_) {
            const FormulaValue value = values.At(static_cast<std::size_t>(period));
            result.Set(i, value.IsNumber() ? value : Taken(value, frame.keepEmpty, line, period, operand.node));
        }
    }
    return result;
}

Values FormulaEvaluation::Operand(const FormulaExpression& operand, const Frame& frame, const Mask& mask) {
    if (operand.operation == Operation::Gap) {
        return {frame.periods.size(), FormulaValue{0, Kind::Gap}};
    }
    if (operand.operation == Operation::OwnElement) {
        const FormulaValue value = source_.OwnElement(operand.lines.front());
        return {frame.periods.size(), Taken(value, frame.keepEmpty, 0, 0, operand.node)};
    }
    if (operand.operation == Operation::Element) {
        const int line = operand.lines.front();
        const int period = operand.range.firstPeriod;
        const FormulaValue value = LineOf(operand, line, frame).At(static_cast<std::size_t>(period));
        return {frame.periods.size(),
                NeedsAny(mask) ? Taken(value, frame.keepEmpty, line, period, operand.node) : Number(0)};
    }
    if (operand.lines.empty()) {
        return {frame.periods.size(), NoValue};
    }
    const auto index = static_cast<std::size_t>(operand.lines.size() == 1 ? 0 : frame.line);
    return FromLine(operand, operand.lines[index], frame, mask);
}

// --- Operators

void FormulaEvaluation::CheckSize(const FormulaExpression& expression, const Frame& frame, Values& values,
                                  const Mask& mask) const {
    for (std::size_t i = 0; i < values.Size(); ++i) {
        if (!std::isfinite(values.numbers[i]) && values.IsNumber(i) && mask[i] != 0) {
            Fail(expression, frame, values, i, Kind::TooLarge);
        }
    }
}

void FormulaEvaluation::Divide(const FormulaExpression& expression, const Frame& frame, const Mask& mask, Values& left,
                               const Values& right) const {
    const bool rest = expression.operation == Operation::Modulo;
    for (std::size_t i = 0; i < left.Size(); ++i) {
        double& number = left.numbers[i];
        const double by = right.numbers[i];
        if (by == 0 && left.IsNumber(i)) {
            if (mask[i] != 0) {
                Fail(expression, frame, left, i, Kind::DivisionByZero);
            }
            number = 0;
        } else {
            number = rest ? RemainderOf(number, by) : number / by;
        }
    }
}

Values FormulaEvaluation::Arithmetic(const FormulaExpression& expression, const Frame& frame, const Mask& mask) {
    Frame plain = frame;
    plain.keepEmpty = false;
    Values left = Of(expression.arguments[0], plain, mask);
    const Values right = Of(expression.arguments[1], plain, mask);
    std::vector<double>& results = left.numbers;
    const std::vector<double>& others = right.numbers;
    for (std::size_t i = 0; i < left.Size(); ++i) {
        left.kinds[i] = std::max(left.kinds[i], right.kinds[i]);
    }
    switch (expression.operation) {
        case Operation::Add:
            std::transform(results.begin(), results.end(), others.begin(), results.begin(), std::plus<>());
            break;
        case Operation::Subtract:
            std::transform(results.begin(), results.end(), others.begin(), results.begin(), std::minus<>());
            break;
        case Operation::Multiply:
            std::transform(results.begin(), results.end(), others.begin(), results.begin(), std::multiplies<>());
            break;
        case Operation::Divide:
        case Operation::Modulo:
            Divide(expression, frame, mask, left, right);
            break;
        default:
            for (std::size_t i = 0; i < left.Size(); ++i) {
                results[i] = Compared(expression.operation, results[i], others[i]);
            }
    }
    CheckSize(expression, frame, left, mask);
    return left;
}

Values FormulaEvaluation::Logic(const FormulaExpression& expression, const Frame& frame, const Mask& mask) {
    const double decided = expression.operation == Operation::And ? Fails : Holds;
    Values left = Of(expression.arguments[0], frame, mask);
    Mask open = mask;
    for (std::size_t i = 0; i < left.Size(); ++i) {
        open[i] = mask[i] != 0 && !left.At(i).Is(decided) && !IsFault(left.kinds[i]) ? 1 : 0;
    }
    const Values right = Of(expression.arguments[1], frame, open);
    for (std::size_t i = 0; i < left.Size(); ++i) {
        if (open[i] != 0 && (left.IsNumber(i) || right.At(i).Is(decided) || IsFault(right.kinds[i]))) {
            left.Set(i, right.At(i));
        }
    }
    return left;
}

Values FormulaEvaluation::Choice(const FormulaExpression& expression, const Frame& frame, const Mask& mask) {
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
            const FormulaValue untold = test.IsNumber(i) ? NoValue : FormulaValue{0, test.kinds[i]};
            result.Set(i, second[i] != 0 ? otherwise.At(i) : untold);
        }
    }
    return result;
}

// --- Functions

Values FormulaEvaluation::OneArgument(const FormulaExpression& expression, const Frame& frame, const Mask& mask) {
    Frame inner = frame;
    if (expression.operation == Operation::Shift) {
        inner.shift += static_cast<int>(expression.number);
    } else if (expression.operation != Operation::Copy) {
        inner.keepEmpty = false;
    }
    Values values = Of(expression.arguments[0], inner, mask);
    for (double& value : values.numbers) {
        switch (expression.operation) {
            case Operation::Negate:
                value = -value;
                break;
            case Operation::Absolute:
                value = std::abs(value);
                break;
            case Operation::Round:
                value = Rounded(value, static_cast<int>(expression.number));
                break;
            case Operation::Integer:
                value = std::floor(value);
                break;
            default:
                break;
        }
    }
    return values;
}

/// The chosen periods up to the one at hand. Empty cells add nothing; a fault stays from its period on.
Values FormulaEvaluation::RunningTotal(const FormulaExpression& expression, const Frame& frame, const Mask& mask) {
    int latest = -1;
    for (std::size_t i = 0; i < mask.size(); ++i) {
        latest = mask[i] != 0 ? std::max(latest, frame.periods[i] + frame.shift) : latest;
    }
    Frame all = frame;
    all.periods = chosen_;
    all.firstIndex = 0;
    all.shift = 0;
    all.keepEmpty = true;
    Mask needed(chosen_.size());
    std::transform(chosen_.begin(), chosen_.end(), needed.begin(),
                   [&](int period) { return static_cast<std::uint8_t>(period <= latest ? 1 : 0); });
    const Values values = Of(expression.arguments[0], all, needed);
    std::vector<FormulaValue> totals;
    totals.reserve(values.Size());
    FormulaFolding folding(Operation::Sum, 1);
    for (std::size_t i = 0; i < values.Size(); ++i) {
        folding.Take(0, values.At(i));
        totals.push_back(folding.At(0));
    }
    Values result(frame.periods.size(), NoValue);
    for (std::size_t i = 0; i < frame.periods.size(); ++i) {
        const int period = frame.periods[i] + frame.shift;
        const auto behind = std::upper_bound(chosen_.begin(), chosen_.end(), period);
        if (mask[i] != 0 && period < periodCount_ && behind != chosen_.begin()) {
            result.Set(i, totals[static_cast<std::size_t>(behind - chosen_.begin()) - 1]);
        }
    }
    CheckSize(expression, frame, result, mask);
    return result;
}

Values FormulaEvaluation::MeanBefore(const FormulaExpression& last, const Frame& frame, const Mask& mask) {
    FormulaFolding folding(Operation::Average, frame.periods.size());
    FoldLine(folding, last, frame, mask);
    Values result = std::move(folding).Result();
    CheckSize(last, frame, result, mask);
    return result;
}

/// From the value before the periods of LAST to the last one of them.
Values FormulaEvaluation::Growth(const FormulaExpression& growth, const Frame& frame, const Mask& mask) {
    const FormulaExpression& last = growth.arguments[0];
    Frame plain = frame;
    plain.keepEmpty = false;
    plain.shift = frame.shift - 1;
    Values result = Of(last.arguments[0], plain, mask);
    plain.shift -= static_cast<int>(last.number);
    const Values base = Of(last.arguments[0], plain, mask);
    for (std::size_t i = 0; i < result.Size(); ++i) {
        result.kinds[i] = std::max(result.kinds[i], base.kinds[i]);
    }
    Divide(growth, frame, mask, result, base);
    for (double& number : result.numbers) {
        number -= 1;
    }
    CheckSize(growth, frame, result, mask);
    return result;
}

Values FormulaEvaluation::Fold(const FormulaExpression& expression, const Frame& frame, const Mask& mask) {
    FormulaFolding folding(expression.operation, frame.periods.size());
    for (const FormulaExpression& argument : expression.arguments) {
        FoldIn(folding, argument, frame, mask, expression.operation);
    }
    Values result = std::move(folding).Result();
    CheckSize(expression, frame, result, mask);
    return result;
}

void FormulaEvaluation::FoldIn(FormulaFolding& folding, const FormulaExpression& argument, const Frame& frame,
                               const Mask& mask, FormulaOperation operation) {
    Frame inner = frame;
    inner.keepEmpty = true;
    const int lines = LineCountOf(argument);
    const bool allItsCells = argument.operation == Operation::Area && argument.range.HasPeriods();
    const bool gathered = allItsCells || (frame.oneValue && argument.perPeriod);
    if (!gathered) {
        for (inner.line = 0; inner.line < lines; ++inner.line) {
            FoldLine(folding, argument, inner, mask);
        }
        return;
    }
    if (!NeedsAny(mask)) {
        return;
    }
    std::vector<int> itsPeriods;
    inner.oneValue = false;
    inner.periods = chosen_;
    if (allItsCells) {
        for (int period = argument.range.firstPeriod; period <= argument.range.lastPeriod; ++period) {
            itsPeriods.push_back(period);
        }
        inner.shift = 0;
        inner.firstIndex = 0;
        inner.periods = itsPeriods;
    }
    const Mask everywhere(inner.periods.size(), 1);
    FormulaFolding all(operation, 1);
    for (inner.line = 0; inner.line < lines; ++inner.line) {
        const Values values = Of(argument, inner, everywhere);
        for (std::size_t i = 0; i < values.Size(); ++i) {
            all.Take(0, values.At(i));
        }
    }
    folding.TakeAll(all);
}

void FormulaEvaluation::FoldLine(FormulaFolding& folding, const FormulaExpression& argument, const Frame& frame,
                                 const Mask& mask) {
    if (argument.operation == Operation::Last) {
        FoldPeriodsBefore(folding, argument, frame, mask);
        return;
    }
    if (FoldSpan(folding, argument, frame, mask)) {
        return;
    }
    const Values values = Of(argument, frame, mask);
    for (std::size_t i = 0; i < values.Size(); ++i) {
        if (mask[i] != 0) {
            folding.Take(i, values.At(i));
        }
    }
}

/// Where not all of them are in the table there is no value: a part of them would look like all.
void FormulaEvaluation::FoldPeriodsBefore(FormulaFolding& folding, const FormulaExpression& last, const Frame& frame,
                                          const Mask& mask) {
    const int count = static_cast<int>(last.number);
    Mask whole = mask;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const int period = frame.periods[i] + frame.shift;
        if (whole[i] != 0 && (period < count || period > periodCount_)) {
            whole[i] = 0;
            folding.Take(i, NoValue);
        }
    }
    if (!NeedsAny(whole)) {
        return;
    }
    Frame before = frame;
    before.keepEmpty = true;
    for (int back = 1; back <= count; ++back) {
        before.shift = frame.shift - back;
        FoldLine(folding, last.arguments[0], before, whole);
    }
}

bool FormulaEvaluation::FoldSpan(FormulaFolding& folding, const FormulaExpression& operand, const Frame& frame,
                                 const Mask& mask) {
    const std::size_t size = frame.periods.size();
    const bool isLine =
        operand.operation == Operation::Line || (operand.operation == Operation::Area && !operand.range.HasPeriods());
    if (!folding.TakesNumbers() || !isLine || size == 0) {
        return false;
    }
    const int first = frame.periods.front() + frame.shift;
    const int last = frame.periods.back() + frame.shift;
    const bool together = last - first + 1 == static_cast<int>(size) && first >= 0 && last < periodCount_;
    if (!together || std::memchr(mask.data(), 0, size)) {
        return false;
    }
    const auto index = static_cast<std::size_t>(operand.lines.size() == 1 ? 0 : frame.line);
    const FormulaSpan values = LineOf(operand, operand.lines[index], frame);
    const auto from = static_cast<std::size_t>(first);
    if (!AreNumbers(values, from, size)) {
        return false;
    }
    folding.TakeNumbers(values, from);
    return true;
}

// --- Faults

void FormulaEvaluation::Fail(const FormulaExpression& expression, const Frame& frame, Values& values, std::size_t index,
                             FormulaKind fault) const {
    if (!table_) {
        values.Set(index, {0, fault});
        return;
    }
    std::string where;
    if (frame.statementLine >= 0) {
        where = table_->LineCaption(frame.statementLine);
    }
    if (!frame.oneValue) {
        const int period = std::clamp(frame.periods[index] + frame.shift, 0, periodCount_ - 1);
        where += (where.empty() ? "" : ", ") + table_->PeriodCaption(period);
    }
    const std::string what = fault == Kind::DivisionByZero ? "Division by zero" : "A number becomes too large";
    throw FormulaFault(expression.node, what + (where.empty() ? "." : " in " + where + "."),
                       "Change the values, or leave such periods out by a condition.");
}

}  // namespace planview
