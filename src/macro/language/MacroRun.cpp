// SPDX-License-Identifier: MIT
#include "macro/language/MacroRun.h"

#include <algorithm>

#include "automation/Texts.h"
#include "macro/language/MacroEvaluation.h"
#include "macro/language/MacroSentences.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view MacroLabel = "MACRO";
/// So many cells are named in a message; of the others it says how many there are.
constexpr std::size_t MostNamedCells = 5;

using Frame = MacroEvaluation::Frame;
using Mask = MacroEvaluation::Mask;
using Values = MacroEvaluation::Values;

/// Runs the statements of a macro over a sheet. Throws MacroFault.
class Runner {
public:
    Runner(const MacroProgram& program, const MacroGrid& places, MacroSheet& sheet)
        : program_(program), places_(places), sheet_(sheet), evaluation_(sheet, places, program.periods) {}

    void Run() {
        sheet_.StartOwn(program_.ownLines, program_.ownElements);
        RunAll(program_.statements, Mask(static_cast<std::size_t>(places_.PeriodCount()), 1));
    }

private:
    /// `active`: by period, where the statements hold.
    void RunAll(const std::vector<MacroStatement>& statements, const Mask& active) {
        for (const MacroStatement& statement : statements) {
            if (statement.isCondition) {
                Decide(statement, active);
            } else if (statement.target == MacroNodeType::OwnElement) {
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
            const double result = test[frame.oneValue ? 0 : static_cast<std::size_t>(found - periods.begin())];
            holds[i] = result == 1 ? 1 : 0;
            fails[i] = result == 0 ? 1 : 0;
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
        const double value = evaluation_.Of(statement.value, frame, Mask(1, 1)).front();
        if (!std::isnan(value)) {
            sheet_.OwnElement(statement.lines.front()) = value;
        }
    }

    void SetLines(const MacroStatement& statement, const Mask& active) {
        const Mask mask = Chosen(active, statement.periods);
        const bool onGrid = statement.target <= MacroNodeType::TableArea;
        std::vector<MacroSheet::Line> results;
        for (std::size_t i = 0; i < statement.lines.size(); ++i) {
            const int line = statement.lines[i];
            MacroSheet::Line& values = onGrid ? sheet_.GridLine(line) : sheet_.OwnLine(line);
            const MacroSheet::Line before = values;
            Frame frame;
            frame.line = static_cast<int>(i);
            frame.own = &values;
            frame.before = &before;
            frame.statementLine = onGrid ? line : -1;
            ComputeLine(statement, mask, frame, values);
            // The other lines of an area read this one as it was.
            results.push_back(before);
            results.back().swap(values);
        }
        for (std::size_t i = 0; i < statement.lines.size(); ++i) {
            const int line = statement.lines[i];
            (onGrid ? sheet_.GridLine(line) : sheet_.OwnLine(line)).swap(results[i]);
        }
    }

    void ComputeLine(const MacroStatement& statement, const Mask& mask, Frame frame, MacroSheet::Line& values) {
        const std::span<const int> periods(statement.periods);
        const bool decimals = frame.statementLine >= 0;
        frame.keepEmpty = true;
        if (statement.direction == MacroDirection::Any) {
            frame.periods = periods;
            Store(frame, mask, evaluation_.Of(statement.value, frame, mask), decimals, values);
            return;
        }
        const std::size_t count = periods.size();
        for (std::size_t step = 0; step < count; ++step) {
            const std::size_t place = statement.direction == MacroDirection::Forward ? step : count - 1 - step;
            frame.periods = periods.subspan(place, 1);
            frame.firstPlace = static_cast<int>(place);
            const Mask one(1, mask[place]);
            Store(frame, one, evaluation_.Of(statement.value, frame, one), decimals, values);
        }
    }

    void Store(const Frame& frame, const Mask& mask, const Values& results, bool onGrid, MacroSheet::Line& values) {
        for (std::size_t i = 0; i < results.size(); ++i) {
            if (mask[i] == 0 || (std::isnan(results[i]) && !IsEmptyCell(results[i]))) {
                continue;
            }
            const int period = frame.periods[i];
            values[static_cast<std::size_t>(period)] = onGrid ? WithDecimals(results[i]) : results[i];
            if (onGrid) {
                sheet_.Touch(frame.statementLine, period);
            }
        }
    }

    [[nodiscard]] double WithDecimals(double value) const {
        if (!program_.decimals || std::isnan(value)) {
            return value;
        }
        constexpr double Exact = 9007199254740992.0;  // beyond it a double has no decimals
        const double scale = std::pow(10.0, *program_.decimals);
        return std::abs(value) * scale < Exact ? std::round(value * scale) / scale : value;
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
    const MacroGrid& places_;
    MacroSheet& sheet_;
    MacroEvaluation evaluation_;
};

bool UsesSelectedLine(const MacroOutline& outline) {
    for (int i = 0; i < outline.Count(); ++i) {
        if (outline.At(i).type == MacroNodeType::TableLine && outline.At(i).value == SelectedPlace) {
            return true;
        }
    }
    return false;
}

/// What the sheet holds that the grid does not, and the cells among it that may not be changed.
class Changes {
public:
    Changes(const GridControl& grid, const MacroGrid& places, MacroSheet& values) {
        for (int line = 0; line < places.LineCount(); ++line) {
            if (!values.HasTouched(line)) {
                continue;
            }
            const MacroSheet::Line& now = values.GridLine(line);
            const MacroSheet::Line& before = values.Before(line);
            for (int period = 0; period < places.PeriodCount(); ++period) {
                if (values.IsTouched(line, period)) {
                    const auto place = static_cast<std::size_t>(period);
                    Take(grid, places, {line, period}, before[place], now[place]);
                }
            }
        }
    }

    [[nodiscard]] const std::vector<NewValue>& NewValues() const noexcept { return values_; }
    [[nodiscard]] bool AnyRefused() const noexcept { return refused_ > 0; }
    /// Names the cells that may not be changed.
    [[nodiscard]] std::string RefusedText() const {
        std::string text = Joined(named_, "; ");
        if (refused_ > named_.size()) {
            text += "; and " + std::to_string(refused_ - named_.size()) + " more";
        }
        return (refused_ == 1 ? "A cell may not be changed: "
                              : std::to_string(refused_) + " cells may not be changed: ") +
               text + ".";
    }

private:
    struct At {
        int line;
        int period;
    };
    void Take(const GridControl& grid, const MacroGrid& places, At at, double before, double now) {
        const Cell cell{places.Periods()[static_cast<std::size_t>(at.period)],
                        places.Lines()[static_cast<std::size_t>(at.line)]};
        if (RefusalOf(grid, cell) != Refusal::None) {
            ++refused_;
            if (named_.size() < MostNamedCells) {
                named_.push_back(places.CellCaption(at.line, at.period));
            }
            return;
        }
        const bool isEmpty = std::isnan(now);
        if (isEmpty ? IsEmptyCell(before) : before == now) {
            return;
        }
        values_.push_back({cell, isEmpty ? Variant("") : Variant(now)});
    }

    std::vector<NewValue> values_;
    std::size_t refused_ = 0;
    std::vector<std::string> named_;
};

void TraceOutcome(std::string_view method, std::string_view nodeKey, const MacroProblems& problems, int changed) {
    if (!TraceEnabled) {
        return;
    }
    for (const MacroProblem& problem : problems) {
        TraceWrite(MacroLabel, "", method, TraceText("{node: ", problem.nodeKey, " - problem: ", problem.what, "}"));
    }
    TraceWrite(MacroLabel, "", method,
               TraceText("{node: ", nodeKey, " - problems: ", problems.size(), " - changed: ", changed, "}"));
}

MacroProblems NoSuchMacro(std::string_view nodeKey) {
    return {{std::string(nodeKey), "", "There is no macro \"" + std::string(nodeKey) + "\" in the tree.",
             "Select a macro there."}};
}

/// The lines for which a macro runs; one without a value for a macro that does not use the selected line.
std::vector<std::optional<int>> LinesToRunFor(const MacroOutline& outline, const MacroGrid& places) {
    std::vector<std::optional<int>> lines;
    if (UsesSelectedLine(outline)) {
        for (const int line : places.SelectedLines()) {
            if (!places.IsTextLine(line)) {
                lines.emplace_back(line);
            }
        }
    }
    return lines.empty() ? std::vector<std::optional<int>>(1) : lines;
}

/// Computes everything on the sheet. A first problem ends it.
MacroProblems Compute(const MacroOutline& outline, const MacroGrid& places, MacroSheet& sheet) {
    MacroProblems problems;
    const std::vector<int> periods = places.SelectedPeriods();
    for (const std::optional<int> line : LinesToRunFor(outline, places)) {
        const MacroProgram program = CheckMacro(outline, places, line, periods, problems);
        if (!problems.empty()) {
            break;
        }
        try {
            Runner(program, places, sheet).Run();
        } catch (const MacroFault& fault) {
            const MacroSentences sentences(outline, places);
            problems.push_back({outline.At(fault.node).key, sentences.Located(fault.node), fault.what(), fault.now});
            break;
        }
    }
    return problems;
}

/// Changes the cells; what a failing table let through is taken back.
void Apply(const MacroRunParts& parts, const Changes& changes, const MacroNode& macro, MacroOutcome& outcome) {
    const BulkResult result = parts.valueEntry.ChangeCells(changes.NewValues());
    outcome.changed = result.changed;
    const int left = result.failed + result.Refused();
    if (left == 0) {
        return;
    }
    if (result.changed > 0) {
        parts.valueEntry.Undo();
        outcome.changed = 0;
    }
    outcome.problems.push_back({macro.key, macro.text, std::to_string(left) + " values could not be stored.",
                                "What the macro had changed before was taken back."});
}

}  // namespace

MacroProblems CheckMacroNode(const MacroRunParts& parts, std::string_view nodeKey) {
    const HostTable table = parts.tables.MACRO_TREE;
    const MacroOutline outline = MacroOutline::Read(parts.tree, table, nodeKey);
    MacroProblems problems;
    if (outline.IsEmpty() || outline.At(0).type != MacroNodeType::Macro) {
        problems = NoSuchMacro(nodeKey);
    } else {
        const MacroGrid places(parts.grid);
        const std::optional<int> line = LinesToRunFor(outline, places).front();
        static_cast<void>(CheckMacro(outline, places, line, places.SelectedPeriods(), problems));
    }
    TraceOutcome("Generate", nodeKey, problems, 0);
    return problems;
}

MacroOutcome RunMacroNode(const MacroRunParts& parts, std::string_view nodeKey, bool onSelectedLine) {
    const HostTable table = parts.tables.MACRO_TREE;
    MacroOutline outline = MacroOutline::Read(parts.tree, table, nodeKey);
    MacroOutcome outcome;
    if (outline.IsEmpty() || outline.At(0).type != MacroNodeType::Macro) {
        outcome.problems = NoSuchMacro(nodeKey);
    } else if (onSelectedLine && !outline.PutOnSelectedLine()) {
        outcome.problems.push_back(
            {std::string(nodeKey), outline.At(0).text, "The macro is not about one line alone.", "Run it as it is."});
    } else {
        const MacroGrid places(parts.grid);
        MacroSheet sheet(parts.grid, places);
        outcome.problems = Compute(outline, places, sheet);
        if (outcome.problems.empty()) {
            const Changes changes(parts.grid, places, sheet);
            const MacroNode& macro = outline.At(0);
            if (changes.AnyRefused()) {
                outcome.problems.push_back({macro.key, macro.text, changes.RefusedText(),
                                            "Nothing was changed. Leave them out, or allow them to be edited."});
            } else if (!changes.NewValues().empty()) {
                Apply(parts, changes, macro, outcome);
            }
        }
    }
    TraceOutcome("Run", nodeKey, outcome.problems, outcome.changed);
    return outcome;
}

}  // namespace planview
