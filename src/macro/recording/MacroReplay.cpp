// SPDX-License-Identifier: MIT
#include "macro/recording/MacroReplay.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "automation/Numbers.h"
#include "grid/CellCaption.h"
#include "grid/CellRules.h"
#include "grid/Percent.h"
#include "grid/SelectedCells.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

/// Thrown for a step that does not fit.
class DoesNotFit : public AutomationError {
public:
    explicit DoesNotFit(const std::string& why) : AutomationError(AutomationErrorCode::Failed, why) {}
};

/// To continue the sentence.
std::string WithoutPeriod(std::string text) {
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

std::vector<std::string> Found(const GridControl& grid, PlaceAxis axis, const PlaceTexts& places) {
    FoundPlaces found = FindPlaces(grid, axis, places);
    if (!found.Ok()) {
        throw DoesNotFit(found.error);
    }
    return std::move(found.keys);
}

bool IsKnownAs(const std::string& value) {
    return value.empty() || TryParseNumber(value).has_value();
}

}  // namespace

/// Computes what the steps do without changing anything.
class MacroReplay::Plan {
public:
    /// A step that gives no values, and its 0-based index among all steps.
    struct ViewPlan {
        ViewStep step;
        std::size_t index = 0;
    };

    explicit Plan(const Parts& parts) : parts_(parts) {}

    void Add(const MacroStep& step, std::size_t index) {
        const std::vector<std::string> columns = Found(parts_.grid, PlaceAxis::Columns, step.columns);
        const std::vector<std::string> lines = Found(parts_.grid, PlaceAxis::Lines, step.lines);
        if (!GivesValues(step.command)) {
            ViewStep found{step.command, columns, lines, step.value};
            if (const std::optional<std::string> why = parts_.misfit(found)) {
                throw DoesNotFit(*why);
            }
            viewSteps_.push_back({std::move(found), index});
        } else if (columns.empty() || lines.empty()) {
            throw DoesNotFit("it does not say which cells it is about");
        } else if (step.command == MacroCommand::Raise) {
            Raise(step, columns, lines);
        } else {
            Enter(step, columns, lines);
        }
    }

    /// The cells in the order of their first change, with their final values.
    [[nodiscard]] std::vector<NewValue> Values() const {
        std::vector<NewValue> values;
        for (const Cell cell : order_) {
            values.push_back({cell, values_.at({cell.column.value, cell.row.value})});
        }
        return values;
    }

    [[nodiscard]] const std::vector<ViewPlan>& ViewSteps() const noexcept { return viewSteps_; }

private:
    using CellIds = std::pair<std::int32_t, std::int32_t>;

    void Raise(const MacroStep& step, const std::vector<std::string>& columns, const std::vector<std::string>& lines) {
        const std::optional<double> percent = TryParseNumber(step.value);
        if (!percent) {
            throw DoesNotFit("\"" + step.value + "\" is no percentage");
        }
        for (const std::string& line : lines) {
            for (const std::string& column : columns) {
                const Cell cell = CellAt(column, line);
                const std::optional<double> number = NumberIn(cell);
                if (!number) {
                    continue;
                }
                CheckTakes(cell, {});
                const std::optional<double> raised = RaisedBy(*number, *percent);
                if (!raised) {
                    throw DoesNotFit(NameOf(cell) + " would become too large");
                }
                Put(cell, *raised);
            }
        }
    }

    void Enter(const MacroStep& step, const std::vector<std::string>& columns, const std::vector<std::string>& lines) {
        const std::optional<StepValues> values = ReadStepValues(step.value, lines.size(), columns.size());
        if (!values) {
            throw DoesNotFit("the recorded values are not for " + std::to_string(lines.size()) + " lines and " +
                             std::to_string(columns.size()) + " periods; lines or periods came between or went");
        }
        for (std::size_t line = 0; line < lines.size(); ++line) {
            for (std::size_t column = 0; column < columns.size(); ++column) {
                if (const std::optional<std::string>& value = (*values)[line][column]) {
                    const Cell cell = CellAt(columns[column], lines[line]);
                    CheckTakes(cell, *value);
                    Put(cell, *value);
                }
            }
        }
    }

    [[nodiscard]] Cell CellAt(const std::string& column, const std::string& line) const {
        const std::optional<Cell> cell = parts_.grid.FindCell({column, line});
        if (!cell) {
            throw DoesNotFit("there is no cell " + line + "/" + column);
        }
        return *cell;
    }

    void CheckTakes(Cell cell, const std::string& value) const {
        const Refusal refusal = RefusalOf(parts_.grid, cell);
        if (refusal != Refusal::None) {
            throw DoesNotFit(NameOf(cell) + ": " + std::string(RefusalText(refusal)));
        }
        if (IsPlanningCell(parts_.grid.KeyOf(cell)) && !IsKnownAs(value)) {
            throw DoesNotFit(NameOf(cell) + " does not take \"" + value + "\", which is no number");
        }
    }

    [[nodiscard]] std::string NameOf(Cell cell) const { return CellCaption(parts_.grid, cell); }

    /// The value of the cell after the steps so far.
    [[nodiscard]] std::optional<double> NumberIn(Cell cell) const {
        const auto found = values_.find({cell.column.value, cell.row.value});
        if (found == values_.end()) {
            return TryParseNumber(parts_.grid.Contents(cell));
        }
        const std::string* text = found->second.TextIf();
        return text ? TryParseNumber(*text) : std::optional(found->second.AsDouble());
    }

    void Put(Cell cell, Variant value) {
        if (values_.insert_or_assign(CellIds{cell.column.value, cell.row.value}, std::move(value)).second) {
            order_.push_back(cell);
        }
    }

    const Parts& parts_;
    std::map<CellIds, Variant> values_;
    std::vector<Cell> order_;
    std::vector<ViewPlan> viewSteps_;
};

std::string MacroReplay::NameOf(const std::vector<MacroStep>& steps, std::size_t index) const {
    return "Step " + std::to_string(index + 1) + " (" + ReadableStep(steps[index], parts_.sentenceOf) + ")";
}

std::string MacroReplay::AddAll(Plan& plan, const std::vector<MacroStep>& steps) const {
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (const std::optional<std::string> why = ErrorTextOf([&] { plan.Add(steps[i], i); })) {
            return NameOf(steps, i) + " does not fit any more: " + WithoutPeriod(*why) + ".";
        }
    }
    return {};
}

std::string MacroReplay::Check(const std::vector<MacroStep>& steps) const {
    Plan plan(parts_);
    return AddAll(plan, steps);
}

MacroOutcome MacroReplay::Run(const std::vector<MacroStep>& steps) const {
    Plan plan(parts_);
    if (const std::string fault = AddAll(plan, steps); !fault.empty()) {
        return FailedOutcome(fault + " Nothing was changed.");
    }
    const std::vector<NewValue> values = plan.Values();
    const auto unchanged = std::count_if(values.begin(), values.end(), [&](const NewValue& each) {
        const std::string& before = parts_.grid.Contents(each.cell);
        const std::string* const text = each.value.TextIf();
        const std::optional<double> after = text ? TryParseNumber(*text) : std::optional(each.value.AsDouble());
        return after ? TryParseNumber(before) == after : text && *text == before;
    });
    const BulkResult changed = parts_.valueEntry.ChangeCells(values);
    std::string fault;
    if (const int lost = changed.failed + changed.Refused(); lost > 0) {
        fault = std::to_string(lost) + " of " + std::to_string(values.size()) +
                " values could not be stored. Undo takes the others back.";
    }
    for (const Plan::ViewPlan& each : plan.ViewSteps()) {
        if (!parts_.perform(each.step) && fault.empty()) {
            fault = NameOf(steps, each.index) + " could not be done; the trace says why.";
        }
    }
    MacroOutcome outcome = fault.empty() ? MacroOutcome() : FailedOutcome(fault);
    outcome.changed = std::max(0, changed.changed - static_cast<int>(unchanged));
    return outcome;
}

std::optional<std::vector<MacroStep>> MacroReplay::OnLine(const GridControl& grid, std::vector<MacroStep> steps,
                                                          const std::string& line) {
    std::set<std::string> lines;
    for (const MacroStep& step : steps) {
        if (!step.lines.keys.empty()) {
            lines.insert(step.lines.keys);
        }
    }
    if (lines.size() != 1 || SinglePlace(*lines.begin()).empty()) {
        return std::nullopt;
    }
    const PlaceTexts texts = DescribePlaces(grid, PlaceAxis::Lines, {line});
    for (MacroStep& step : steps) {
        if (!step.lines.keys.empty()) {
            step.lines = texts;
        }
    }
    return steps;
}

std::string SelectedLine(const GridControl& grid) {
    const SelectedBlock block = BlockOfSelection(grid, HiddenCells::LeftOut);
    if (block.rows.size() != 1 || grid.Row(block.rows.front()).area != RowArea::Center) {
        return {};
    }
    return grid.Row(block.rows.front()).key;
}

}  // namespace planview
