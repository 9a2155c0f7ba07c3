// SPDX-License-Identifier: MIT
#include "macro/language/MacroRunner.h"

#include <algorithm>
#include <span>
#include <utility>

#include "formula/FormulaEvaluation.h"

namespace planview {

namespace {

using Frame = FormulaEvaluation::Frame;
using Mask = FormulaEvaluation::Mask;
using Values = FormulaEvaluation::Values;

/// The sheet of a run as what its expressions read.
class SheetSource final : public FormulaSource {
public:
    explicit SheetSource(MacroSheet& sheet) : sheet_(sheet) {}

    [[nodiscard]] FormulaSpan TableLine(int line) override { return sheet_.TableLine(line).Span(); }
    [[nodiscard]] FormulaSpan OwnLine(int line) override { return sheet_.OwnLine(line).Span(); }
    [[nodiscard]] FormulaValue OwnElement(int element) override { return sheet_.OwnElement(element); }

private:
    MacroSheet& sheet_;
};

class Runner {
public:
    Runner(const MacroProgram& program, const PlanningTable& table, MacroSheet& sheet)
        : program_(program),
          table_(table),
          sheet_(sheet),
          source_(sheet),
          evaluation_(source_, table, program.periods) {}

    void Run() {
        sheet_.StartOwn(program_.ownLines, program_.ownElements);
        RunAll(program_.statements, Mask(static_cast<std::size_t>(table_.PeriodCount()), 1));
    }

private:
    /// `active`: by period, where the statements hold.
    void RunAll(const std::vector<MacroStatement>& statements, const Mask& active) {
        for (const MacroStatement& statement : statements) {
            if (statement.isCondition) {
                Decide(statement, active);
            } else if (statement.target == FormulaOperation::OwnElement) {
                SetElement(statement, active);
            } else {
                SetLines(statement, active);
            }
        }
    }

    void Decide(const MacroStatement& condition, const Mask& active) {
        Mask holds(active.size(), 0);
        Mask fails(active.size(), 0);
        const std::vector<int>& periods = condition.testedPeriods;
        const Mask mask = Chosen(active, periods);
        Frame frame;
        frame.periods = periods;
        if (!condition.test.perPeriod && !periods.empty()) {
            frame.periods = std::span(periods).first(1);  // decides for all of them
            frame.oneValue = true;
        }
        const Values test = evaluation_.Of(condition.test, frame, frame.oneValue ? Mask(1, AnyOf(mask) ? 1 : 0) : mask);
        for (std::size_t i = 0; i < active.size(); ++i) {
            const auto found = std::lower_bound(periods.begin(), periods.end(), static_cast<int>(i));
            const bool isTested = found != periods.end() && *found == static_cast<int>(i);
            if (active[i] == 0 || (!isTested && !frame.oneValue)) {
                continue;
            }
            const FormulaValue result = test.At(frame.oneValue ? 0 : static_cast<std::size_t>(found - periods.begin()));
            holds[i] = result.Is(1) ? 1 : 0;
            fails[i] = result.Is(0) ? 1 : 0;
        }
        RunAll(condition.holds, holds);
        RunAll(condition.fails, fails);
    }

    void SetElement(const MacroStatement& statement, const Mask& active) {
        if (!AnyOf(active)) {
            return;
        }
        Frame frame;
        frame.periods = std::span(program_.periods).first(1);
        frame.oneValue = true;
        const FormulaValue value = evaluation_.Of(statement.value, frame, Mask(1, 1)).At(0);
        if (value.IsNumber()) {
            sheet_.OwnElement(statement.lines.front()) = value;
        }
    }

    void SetLines(const MacroStatement& statement, const Mask& active) {
        const Mask mask = Chosen(active, statement.periods);
        const bool ofTable = IsOfTable(statement.target);
        std::vector<Values> results;
        for (std::size_t i = 0; i < statement.lines.size(); ++i) {
            const int line = statement.lines[i];
            Values& values = ofTable ? sheet_.TableLine(line) : sheet_.OwnLine(line);
            const Values before = values;
            Frame frame;
            frame.line = static_cast<int>(i);
            frame.own = &values;
            frame.before = &before;
            frame.statementLine = ofTable ? line : -1;
            ComputeLine(statement, mask, frame, values);
            // The other lines of an area read this one as it was.
            results.push_back(before);
            std::swap(results.back(), values);
        }
        for (std::size_t i = 0; i < statement.lines.size(); ++i) {
            const int line = statement.lines[i];
            std::swap(ofTable ? sheet_.TableLine(line) : sheet_.OwnLine(line), results[i]);
        }
    }

    void ComputeLine(const MacroStatement& statement, const Mask& mask, Frame frame, Values& values) {
        const std::span<const int> periods(statement.periods);
        frame.keepEmpty = true;
        if (statement.direction == MacroDirection::Any) {
            frame.periods = periods;
            Store(frame, mask, evaluation_.Of(statement.value, frame, mask), values);
            return;
        }
        const std::size_t count = periods.size();
        for (std::size_t step = 0; step < count; ++step) {
            const std::size_t index = statement.direction == MacroDirection::Forward ? step : count - 1 - step;
            frame.periods = periods.subspan(index, 1);
            frame.firstIndex = static_cast<int>(index);
            const Mask one(1, mask[index]);
            Store(frame, one, evaluation_.Of(statement.value, frame, one), values);
        }
    }

    void Store(const Frame& frame, const Mask& mask, const Values& results, Values& values) {
        const bool ofTable = frame.statementLine >= 0;
        for (std::size_t i = 0; i < results.Size(); ++i) {
            FormulaValue result = results.At(i);
            if (mask[i] == 0 || result.kind == FormulaKind::None) {
                continue;
            }
            const int period = frame.periods[i];
            if (ofTable) {
                if (program_.decimals && result.IsNumber()) {
                    result.number = Rounded(result.number, *program_.decimals);
                }
                sheet_.Touch(frame.statementLine, period);
            }
            values.Set(static_cast<std::size_t>(period), result);
        }
    }

    static Mask Chosen(const Mask& active, const std::vector<int>& periods) {
        Mask mask;
        mask.reserve(periods.size());
        for (const int period : periods) {
            mask.push_back(active[static_cast<std::size_t>(period)]);
        }
        return mask;
    }
    static bool AnyOf(const Mask& mask) noexcept {
        return std::find(mask.begin(), mask.end(), std::uint8_t{1}) != mask.end();
    }

    const MacroProgram& program_;
    const PlanningTable& table_;
    MacroSheet& sheet_;
    SheetSource source_;
    FormulaEvaluation evaluation_;
};

}  // namespace

void RunProgram(const MacroProgram& program, const PlanningTable& table, MacroSheet& sheet) {
    Runner(program, table, sheet).Run();
}

}  // namespace planview
