// SPDX-License-Identifier: MIT
#include "calculation/GridCalculation.h"

#include <algorithm>
#include <utility>

#include "automation/Numbers.h"
#include "calculation/GridNames.h"
#include "calculation/PlanLeaves.h"
#include "calculation/Spreading.h"
#include "grid/CellRules.h"
#include "grid/CellTable.h"
#include "grid/CellText.h"
#include "grid/KeyLookup.h"
#include "trace/ErrorTrap.h"

namespace planview {

namespace {

/// What a computed cell shows that has no value because of a fault.
constexpr std::string_view NoValue = "\u2013";
/// Of a leaf without a number format.
constexpr int UsualDecimals = 2;
/// Those that a percentage has more as a number.
constexpr int PercentDecimals = 2;

int DecimalsIn(const std::string& contents) {
    const std::size_t mark = contents.find(GridDecimalMark);
    return mark == std::string::npos ? 0 : static_cast<int>(contents.size() - mark - 1);
}

template <class Id>
std::vector<int> PlacesById(const std::vector<Id>& ids) {
    std::vector<int> places;
    for (std::size_t place = 0; place < ids.size(); ++place) {
        const auto index = static_cast<std::size_t>(ids[place].value);
        places.resize(std::max(places.size(), index + 1), -1);
        places[index] = static_cast<int>(place);
    }
    return places;
}

int PlaceIn(const std::vector<int>& places, std::int32_t id) {
    return id >= 0 && static_cast<std::size_t>(id) < places.size() ? places[static_cast<std::size_t>(id)] : -1;
}

}  // namespace

void GridCalculation::Build() noexcept {
    plan_.reset();
    rows_.clear();
    problems_.clear();
    if (!formulas_.IsSet()) {
        return;
    }
    ErrorTrap("FORMULAS", "Build", [&] {
        const GridControl& grid = driver_.Grid();
        const GridNames names(grid, tables_.LINE_INDEX);
        Load(ReadFormulas(formulas_, names, problems_));
        MarkComputed();
        plan_->ComputeAll();
        TellCycles(names);
        StoreAll();
    });
}

void GridCalculation::Load(std::vector<FormulaRow> rows) {
    const GridControl& grid = driver_.Grid();
    const std::span<const RowId> lines = grid.Rows(RowArea::Center);
    const std::span<const ColumnId> periods = grid.Columns(ColumnArea::Center);
    lines_.assign(lines.begin(), lines.end());
    periods_.assign(periods.begin(), periods.end());
    placeOfLine_ = PlacesById(lines_);
    placeOfPeriod_ = PlacesById(periods_);
    built_ = grid.BuildVersion();
    rows_ = std::move(rows);
    std::vector<PlanFormula> formulas;
    for (FormulaRow& row : rows_) {
        formulas.push_back(std::move(row.plan));
    }
    const auto lineCount = static_cast<int>(lines_.size());
    const auto periodCount = static_cast<int>(periods_.size());
    plan_ = std::make_unique<PlanCalculation>(std::move(formulas),
                                              PlanSize{lineCount, periodCount, lineCount, periodCount});
    for (int line = 0; line < lineCount; ++line) {
        for (int period = 0; period < periodCount; ++period) {
            plan_->Set({line, period}, ValueIn(CellAt({line, period})));
        }
    }
}

void GridCalculation::MarkComputed() const {
    GridControl& grid = driver_.Grid();
    const auto mark = [&](GridAttribute attribute, const PlanFormula& formula) {
        const bool ofLine = formula.axis == FormulaAxis::Lines;
        const CellKey keys = grid.KeyOf(CellAt(formula.CellAt(formula.only.value_or(0))));
        if (formula.only) {
            grid.SetAttribute(GridElement::Cell, keys, attribute, true, false);
        } else if (ofLine) {
            grid.SetCenterAttribute(GridElement::Row, {{}, keys.row}, attribute, true, false);
        } else {
            grid.SetCenterAttribute(GridElement::Column, {keys.column, {}}, attribute, true, false);
        }
    };
    if (lines_.empty() || periods_.empty()) {
        return;
    }
    for (const PlanFormula& formula : plan_->Formulas()) {
        mark(GridAttribute::Computed, formula);
        if (!formula.mayEnter) {
            mark(GridAttribute::ReadOnly, formula);
        }
    }
}

void GridCalculation::StoreAll() const {
    CellTable tab(tables_.TAB, CellTable::Lookup::Indexed);
    KeyLookup lookup(tables_);
    GridControl& grid = driver_.Grid();
    for (int line = 0; line < plan_->Size().lines; ++line) {
        for (int period = 0; period < plan_->Size().periods; ++period) {
            const PlanCell place{line, period};
            if (!plan_->IsComputed(place)) {
                continue;
            }
            const ComputedValue computed = ComputedAt(place);
            const Cell cell = CellAt(place);
            if (grid.Contents(cell) == computed.shown) {
                continue;
            }
            const KeyPositions at = lookup.PositionsOf(computed.cell);
            if (const HostTable::Row row = tab.Find(at.row, at.column); row != 0) {
                tab.SetValue(row, computed.value);
            } else if (!computed.value.IsEmpty()) {
                tab.Add(at.row, at.column, computed.value);
            }
            driver_.Contents(computed.cell, computed.shown, false);
        }
    }
}

void GridCalculation::TellCycles(const FormulaNames& names) {
    for (const std::vector<int>& cycle : plan_->Graph().Cycles()) {
        std::string members;
        for (const int formula : cycle) {
            const PlanFormula& its = plan_->Formulas()[static_cast<std::size_t>(formula)];
            members += (members.empty() ? "\"" : ", \"") + names.Caption(its.axis, its.target) + "\"";
        }
        problems_.push_back({0, members, members + " are computed from themselves; their values stay as they are."});
    }
}

FormulaReading GridCalculation::Read(std::string_view target, std::string_view formula) const {
    return ReadFormula(target, formula, GridNames(driver_.Grid(), tables_.LINE_INDEX));
}

std::string GridCalculation::FormulaText(Cell cell) const {
    const std::optional<PlanCell> place = PlaceOf(cell);
    const int formula = place ? plan_->Graph().FormulaOf(*place) : -1;
    if (formula < 0) {
        return {};
    }
    return PrintFormula(rows_[static_cast<std::size_t>(formula)].formula,
                        GridNames(driver_.Grid(), tables_.LINE_INDEX));
}

std::string GridCalculation::Explain(Cell cell) const {
    const std::string formula = FormulaText(cell);
    if (formula.empty()) {
        return {};
    }
    const std::string_view fault = FaultText(plan_->At(*PlaceOf(cell)).kind);
    return "= " + formula + (fault.empty() ? "" : "\nThere is no value because of " + std::string(fault) + ".");
}

bool GridCalculation::IsComputed(Cell cell) const {
    const std::optional<PlanCell> place = PlaceOf(cell);
    return place && plan_->IsComputed(*place);
}

std::vector<ComputedValue> GridCalculation::Follow(std::span<const CellKey> changed) {
    std::vector<PlanCell> places;
    for (const CellKey& key : changed) {
        const std::optional<Cell> cell = driver_.Grid().FindCell(key);
        const std::optional<PlanCell> place = cell ? PlaceOf(*cell) : std::nullopt;
        if (place) {
            if (!plan_->IsComputed(*place)) {
                plan_->Set(*place, ValueIn(*cell));
            }
            places.push_back(*place);
        }
    }
    std::vector<ComputedValue> computed;
    if (!places.empty()) {
        for (const PlanCell place : plan_->Compute(places)) {
            computed.push_back(ComputedAt(place));
        }
    }
    return computed;
}

SpreadValues GridCalculation::Spread(Cell total, double amount, SpreadMethod method, std::string_view profile) const {
    SpreadValues spread;
    const std::optional<PlanCell> place = PlaceOf(total);
    const std::optional<std::vector<WeightedLeaf>> weighted = place ? LeavesOf(*plan_, *place) : std::nullopt;
    if (!weighted || weighted->empty()) {
        spread.refusal =
            "This cell is not a sum or mean of other cells, so that nothing can be spread over them: change the cells "
            "that it is computed from.";
        return spread;
    }
    const GridControl& grid = driver_.Grid();
    std::vector<SpreadLeaf> leaves;
    std::vector<double> sizes;
    const std::optional<RowId> profileRow = grid.FindRow(profile);
    for (const WeightedLeaf& leaf : *weighted) {
        const Cell cell = CellAt(leaf.cell);
        const FormulaValue value = plan_->At(leaf.cell);
        leaves.push_back({value.IsNumber() ? std::optional(value.number) : std::nullopt, leaf.weight, DecimalsOf(cell),
                          RefusalOf(grid, cell) != Refusal::None});
        sizes.push_back(profileRow ? ValueIn({cell.column, *profileRow}).number : 0);
    }
    const SpreadResult result = planview::Spread(leaves, amount, method, sizes);
    if (result.refusal == SpreadRefusal::AllFixed) {
        spread.refusal = leaves.size() == 1
                             ? "The cell below this total cannot be changed."
                             : "All " + std::to_string(leaves.size()) + " cells below this total are read-only.";
    } else if (result.refusal == SpreadRefusal::NoProfile) {
        spread.refusal = "The other line holds nothing in these columns that the number could be spread by.";
    } else if (result.refusal != SpreadRefusal::None) {
        spread.refusal = "The number is too large to be spread over the cells below this total.";
    }
    for (std::size_t i = 0; spread.refusal.empty() && i < leaves.size(); ++i) {
        if (result.values[i] != leaves[i].value) {
            spread.leaves.emplace_back(CellAt((*weighted)[i].cell), Variant(*result.values[i]));
        }
    }
    return spread;
}

std::optional<PlanCell> GridCalculation::PlaceOf(Cell cell) const {
    if (!plan_ || driver_.Grid().BuildVersion() != built_) {
        return std::nullopt;
    }
    const PlanCell place{PlaceIn(placeOfLine_, cell.row.value), PlaceIn(placeOfPeriod_, cell.column.value)};
    return place.line < 0 || place.period < 0 ? std::nullopt : std::optional(place);
}

Cell GridCalculation::CellAt(PlanCell place) const {
    return {periods_[static_cast<std::size_t>(place.period)], lines_[static_cast<std::size_t>(place.line)]};
}

FormulaValue GridCalculation::ValueIn(Cell cell) const {
    const std::string contents = driver_.Grid().Contents(cell);
    if (contents.empty()) {
        return {};
    }
    const std::optional<double> number = TryParseNumber(contents);
    return number ? FormulaValue{*number, FormulaKind::Number} : FormulaValue{0, FormulaKind::Text};
}

ComputedValue GridCalculation::ComputedAt(PlanCell place) const {
    const FormulaValue value = plan_->At(place);
    ComputedValue computed{driver_.Grid().KeyOf(CellAt(place)), {}, {}};
    if (value.IsNumber()) {
        computed.value = value.number;
        computed.shown = CellText(computed.value);
    } else if (IsFault(value.kind)) {
        computed.shown = NoValue;
    }
    return computed;
}

/// By the number format; without one, those of the present value and at least the usual ones.
int GridCalculation::DecimalsOf(Cell cell) const {
    const GridControl& grid = driver_.Grid();
    const NumberFormat* format = grid.Look(cell).format;
    const std::optional<int> decimals = format ? format->Decimals() : std::nullopt;
    return decimals ? *decimals + (format->ShowsPercent() ? PercentDecimals : 0)
                    : std::max(UsualDecimals, DecimalsIn(grid.Contents(cell)));
}

}  // namespace planview
