// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/AutomationObject.h>
#include <planview/CellKey.h>
#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/FormulaProblem.h>
#include <planview/FormulaReading.h>
#include <planview/SpreadMethod.h>

namespace planview {

/// Computed lines, columns and cells: totals that follow when a value changes, and totals that can be entered.
///
/// The table FORMULAS is optional, and is read by `DP_Import_Create`. Each row is a formula:
/// - `TARGET`: what is computed, the key of a line ("ROW12") or of a column ("COL13"), or of one cell ("ROW12/COL13");
/// - `FORMULA`: the expression, by keys or captions: "SUM(MEMBERS)";
/// - `SOLVE_ORDER`: a number, optional, 0 without it. Where a computed line crosses a computed column, the higher one
///   computes the cell, and the column where both are equal;
/// - `ENTRY`: "X", optional: a number entered into the target is spread over the cells that it is made of.
///
/// Computed values are written into TAB, and announced as entered ones are. They are never in TAB_OLD, and are no part
/// of an undo step: undoing what they follow from computes them again. Without FORMULAS nothing is computed.
class PLANVIEW_EXPORT Calculation final : public Facet {
public:
    /// That of this control.
    explicit Calculation(PlanView& control) noexcept : Facet(control) {}

    /// Takes over the table FORMULAS, or releases it with a null one. It counts from the next `DP_Import_Create` on.
    void SetFormulas(ObjectRef table);
    /// The table, null without one.
    [[nodiscard]] ObjectRef Formulas() const;

    /// Whether a formula computes the cell.
    [[nodiscard]] bool IsComputed(const CellKey& cell) const;
    /// The formula that computes the cell, by the captions of now; empty where none does.
    [[nodiscard]] std::string FormulaOf(const CellKey& cell) const;
    /// What the cell is computed from, for the user: "= SUM(MEMBERS)", and in a second line why it has no value where
    /// it has none. Empty where no formula computes it.
    [[nodiscard]] std::string Explain(const CellKey& cell) const;
    /// Spreads a number over the cells that a computed cell is made of, as one action of the user: what cannot be
    /// changed keeps its value, the others carry the difference. `profile` is the key of a line, for
    /// SpreadMethod::Profile only. Answers why nothing was spread, a sentence for the user; empty where it was. The
    /// formula's `ENTRY` does not matter.
    std::string Spread(const CellKey& total, double number, SpreadMethod method = SpreadMethod::Proportional,
                       std::string_view profile = {});
    /// Reads a formula, by keys or captions, for a target as FORMULAS names it, without taking it over.
    [[nodiscard]] FormulaReading Read(std::string_view target, std::string_view formula) const;
    /// What is wrong with rows of FORMULAS, in their order; cycles last.
    [[nodiscard]] std::vector<FormulaProblem> Problems() const;
};

}  // namespace planview
