// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/Calculation.h>

#include "control/Guarded.h"
#include "grid/CellRules.h"

namespace planview {

namespace {

constexpr std::string_view Control = "Calculation";

}  // namespace

void Calculation::SetFormulas(ObjectRef table) {
    Asked(State(), Control, "SetFormulas",
          [&](ControlContext& context) { context.grid.calculation.SetFormulas(HostTable(std::move(table))); });
}

ObjectRef Calculation::Formulas() const {
    ObjectRef table;
    Asked(State(), Control, "Formulas",
          [&](ControlContext& context) { table = context.grid.calculation.Formulas().Object(); });
    return table;
}

bool Calculation::IsComputed(const CellKey& cell) const {
    bool computed = false;
    Asked(State(), Control, "IsComputed", [&](ControlContext& context) {
        const std::optional<Cell> found = context.grid.control.FindCell(cell);
        computed = found && context.grid.calculation.IsComputed(*found);
    });
    return computed;
}

std::string Calculation::FormulaOf(const CellKey& cell) const {
    std::string text;
    Asked(State(), Control, "FormulaOf", [&](ControlContext& context) {
        const std::optional<Cell> found = context.grid.control.FindCell(cell);
        text = found ? context.grid.calculation.FormulaText(*found) : std::string();
    });
    return text;
}

std::string Calculation::Explain(const CellKey& cell) const {
    std::string text;
    Asked(State(), Control, "Explain", [&](ControlContext& context) {
        const std::optional<Cell> found = context.grid.control.FindCell(cell);
        text = found ? context.grid.calculation.Explain(*found) : std::string();
    });
    return text;
}

std::string Calculation::Spread(const CellKey& total, double number, SpreadMethod method, std::string_view profile) {
    std::string refusal = "Nothing can be changed now.";
    Guarded(State(), Control, "Spread", [&](ControlContext& context) {
        GridPart& grid = context.grid;
        const std::optional<Cell> found = grid.control.FindCell(total);
        if (context.shared.busy || !found) {
            refusal = found ? refusal : "There is no such cell.";
            return;
        }
        if (grid.control.IsReadOnly()) {
            refusal = RefusalText(Refusal::TableReadOnly);
            return;
        }
        const SpreadValues spread = grid.calculation.Spread(*found, number, method, profile);
        std::vector<NewValue> values;
        for (const auto& [cell, value] : spread.leaves) {
            values.push_back({cell, value});
        }
        const BulkResult done = grid.valueEntry.ChangeCells(values);
        refusal = spread.refusal.empty() ? done.reason : spread.refusal;
    });
    return refusal;
}

FormulaReading Calculation::Read(std::string_view target, std::string_view formula) const {
    FormulaReading reading;
    Asked(State(), Control, "Read",
          [&](ControlContext& context) { reading = context.grid.calculation.Read(target, formula); });
    return reading;
}

std::vector<FormulaProblem> Calculation::Problems() const {
    std::vector<FormulaProblem> problems;
    Asked(State(), Control, "Problems",
          [&](ControlContext& context) { problems = context.grid.calculation.Problems(); });
    return problems;
}

}  // namespace planview
