// SPDX-License-Identifier: MIT
#include "formula/FormulaBinding.h"

#include <algorithm>
#include <numeric>

#include "formula/FormulaFault.h"
#include "formula/FormulaShape.h"
#include "formula/LineMembers.h"

namespace planview {

namespace {

/// The ends of a reference along one axis.
struct Ends {
    const FormulaPlace& first;
    const FormulaPlace& last;
    [[nodiscard]] bool AreNamed() const noexcept { return !first.key.empty(); }
    [[nodiscard]] bool AreRange() const noexcept { return first.key != last.key; }
};

Ends EndsOf(const FormulaReference& reference, FormulaAxis axis) {
    return axis == FormulaAxis::Lines ? Ends{reference.firstLine, reference.lastLine}
                                      : Ends{reference.firstPeriod, reference.lastPeriod};
}

FormulaAxis Other(FormulaAxis axis) noexcept {
    return axis == FormulaAxis::Lines ? FormulaAxis::Periods : FormulaAxis::Lines;
}

/// The operand for these lines; `range`: the periods that it names, which may be none. `many`: several values.
FormulaExpression OperandFor(std::vector<int> lines, const PlanningRange& range, bool many) {
    FormulaExpression made;
    made.lines = std::move(lines);
    made.range = range;
    made.perPeriod = !range.HasPeriods() || many;
    made.operation = many                 ? FormulaOperation::Area
                     : range.HasPeriods() ? FormulaOperation::Element
                                          : FormulaOperation::Line;
    return made;
}

FormulaExpression Gap() {
    FormulaExpression made;
    made.operation = FormulaOperation::Gap;
    made.perPeriod = true;
    return made;
}

class BoundScope final : public FormulaScope {
public:
    BoundScope(const Formula& formula, const FormulaNames& names, int target)
        : FormulaScope(formula), formula_(formula), names_(names), target_(target) {}

    [[nodiscard]] FormulaExpression Operand(int token) const override {
        const FormulaReference& reference = formula_.ReferenceOf(token);
        const Ends own = EndsOf(reference, formula_.Axis());
        const Ends across = EndsOf(reference, Other(formula_.Axis()));
        PlanningRange range;
        std::vector<int> lines{target_};
        if (own.AreNamed()) {
            const std::optional<std::pair<int, int>> places = PlacesOf(formula_.Axis(), own);
            if (!places) {
                return Gap();
            }
            lines = LinesIn(*places, own.AreRange());
        }
        if (across.AreNamed()) {
            const std::optional<std::pair<int, int>> places = PlacesOf(Other(formula_.Axis()), across);
            if (!places) {
                return Gap();
            }
            range.firstPeriod = places->first;
            range.lastPeriod = places->second;
        }
        return OperandFor(std::move(lines), range, own.AreRange() || across.AreRange());
    }

    [[nodiscard]] FormulaExpression Members(int /*token*/) const override {
        return OperandFor(MembersOf(names_, target_), {}, true);
    }

private:
    [[nodiscard]] std::optional<std::pair<int, int>> PlacesOf(FormulaAxis axis, const Ends& ends) const {
        const std::optional<int> first = names_.Find(axis, ends.first.key);
        const std::optional<int> last = names_.Find(axis, ends.last.key);
        return first && last ? std::optional(std::pair(std::min(*first, *last), std::max(*first, *last)))
                             : std::nullopt;
    }
    [[nodiscard]] std::vector<int> LinesIn(const std::pair<int, int>& places, bool isRange) const {
        std::vector<int> lines;
        for (int place = places.first; place <= places.second; ++place) {
            if (!isRange || formula_.Axis() == FormulaAxis::Periods || !names_.IsTextLine(place)) {
                lines.push_back(place);
            }
        }
        return lines;
    }

    const Formula& formula_;
    const FormulaNames& names_;
    int target_;
};

/// Collects what an expression reads, seen from the period at hand.
class ReadsCollector {
public:
    void Collect(const FormulaExpression& expression, int from, int to) {
        const int number = static_cast<int>(expression.number);
        switch (expression.operation) {
            case FormulaOperation::Gap:
                return;
            case FormulaOperation::Shift:
                from += number;
                to += number;
                break;
            case FormulaOperation::Last:
                from -= number;
                to -= 1;
                break;
            case FormulaOperation::Growth:
                from -= 1;  // the period before those of LAST
                break;
            case FormulaOperation::Cumulate:
                from = FormulaRead::AllBefore;
                break;
            default:
                break;
        }
        from = std::max(from, FormulaRead::AllBefore);
        if (expression.IsOperand()) {
            Add(expression, from, to);
        }
        for (const FormulaExpression& argument : expression.arguments) {
            Collect(argument, from, to);
        }
    }

    [[nodiscard]] std::vector<FormulaRead> Reads() && { return std::move(reads_); }

private:
    void Add(const FormulaExpression& operand, int from, int to) {
        FormulaRead read{operand.lines, operand.range.firstPeriod, operand.range.lastPeriod, 0, 0};
        if (!operand.range.HasPeriods()) {
            read.from = from;
            read.to = to;
        }
        if (!read.lines.empty() && std::find(reads_.begin(), reads_.end(), read) == reads_.end()) {
            reads_.push_back(std::move(read));
        }
    }

    std::vector<FormulaRead> reads_;
};

}  // namespace

FormulaExpression UnboundScope::Operand(int token) const {
    const FormulaReference& reference = formula_.ReferenceOf(token);
    const Ends own = EndsOf(reference, formula_.Axis());
    const Ends across = EndsOf(reference, Other(formula_.Axis()));
    PlanningRange range;
    if (across.AreNamed()) {
        range.firstPeriod = 0;
        range.lastPeriod = across.AreRange() ? 1 : 0;
    }
    return OperandFor(own.AreRange() ? std::vector<int>{0, 1} : std::vector<int>{0}, range,
                      own.AreRange() || across.AreRange());
}

FormulaExpression UnboundScope::Members(int token) const {
    if (formula_.Axis() == FormulaAxis::Periods) {
        throw FormulaFault(token, "A column has no lines below it.", "Name the lines or columns.");
    }
    return OperandFor({0, 1}, {}, true);
}

BoundFormula BindFormula(const Formula& formula, const FormulaNames& names, int target) {
    BoundFormula bound;
    bound.target = target;
    bound.periods = names.Count(Other(formula.Axis()));
    try {
        bound.expression = ParseNumberExpression(BoundScope(formula, names, target), 0);
        static_cast<void>(ShapeOf(bound.expression, false));
    } catch (const FormulaFault& fault) {
        bound.expression = {};
        bound.fault = fault.what();
    }
    return bound;
}

std::vector<FormulaRead> ReadsOf(const BoundFormula& formula) {
    ReadsCollector collector;
    collector.Collect(formula.expression, 0, 0);
    return std::move(collector).Reads();
}

void EvaluateFormula(const BoundFormula& formula, FormulaSource& source, std::span<const int> periods,
                     FormulaValues& values) {
    if (!formula.fault.empty() || periods.empty()) {
        values = FormulaValues(periods.size(), {0, FormulaKind::Gap});
        return;
    }
    std::vector<int> all(static_cast<std::size_t>(formula.periods));
    std::iota(all.begin(), all.end(), 0);
    FormulaEvaluation evaluation(source, all);
    FormulaEvaluation::Frame frame;
    frame.periods = periods;
    frame.keepEmpty = true;
    values = evaluation.Of(formula.expression, frame, FormulaEvaluation::Mask(periods.size(), 1));
    for (std::size_t i = 0; i < values.Size(); ++i) {
        if (!values.IsNumber(i)) {
            values.numbers[i] = 0;
        }
    }
}

std::vector<int> MembersOf(const FormulaNames& names, int line) {
    return MembersBelow(
        line, names.Count(FormulaAxis::Lines), [&](int each) { return names.Level(each); },
        [&](int each) { return names.IsTextLine(each); });
}

}  // namespace planview
