// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/Calculation.h>

#include "control/Guarded.h"

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
