// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/SpreadMethod.h>

#include "automation/TableSlots.h"
#include "calculation/FormulaTable.h"
#include "calculation/PlanCalculation.h"
#include "grid/CellComputation.h"
#include "grid/modGrid.h"

namespace planview {

/// The computed lines and columns of a grid: reads the formulas when the grid is built, computes, and keeps what it has
/// computed equal to the formulas after each change of values. Without formulas it does nothing.
class GridCalculation final : public CellComputation {
public:
    GridCalculation(modGrid& driver, const TableSlots& tables) : driver_(driver), tables_(tables) {}

    void SetFormulas(HostTable formulas) { formulas_ = std::move(formulas); }
    [[nodiscard]] const HostTable& Formulas() const noexcept { return formulas_; }

    /// The grid has just been built from the tables: marks the computed cells, computes them, and writes into TAB what
    /// it does not hold yet. Until the next call the keys of lines and columns stand for the same ones.
    void Build() noexcept;
    [[nodiscard]] const std::vector<FormulaProblem>& Problems() const noexcept { return problems_; }

    [[nodiscard]] FormulaReading Read(std::string_view target, std::string_view formula) const;
    /// The formula of a computed cell by the captions of now; empty for a leaf.
    [[nodiscard]] std::string FormulaText(Cell cell) const;
    /// "= " and the formula, and in a second line why the cell has no value where it has none; empty for a leaf.
    [[nodiscard]] std::string Explain(Cell cell) const;

    // CellComputation
    [[nodiscard]] bool Computes() const override { return plan_ && !plan_->Formulas().empty(); }
    [[nodiscard]] bool IsComputed(Cell cell) const override;
    [[nodiscard]] std::vector<ComputedValue> Follow(std::span<const CellKey> changed) override;
    [[nodiscard]] SpreadValues Spread(Cell total, double amount) const override {
        return Spread(total, amount, SpreadMethod::Proportional, {});
    }

    /// The same by a method. `profile`: the key of the line that SpreadMethod::Profile goes by.
    [[nodiscard]] SpreadValues Spread(Cell total, double amount, SpreadMethod method, std::string_view profile) const;

private:
    [[nodiscard]] std::optional<PlanCell> PlaceOf(Cell cell) const;
    [[nodiscard]] Cell CellAt(PlanCell place) const;
    [[nodiscard]] FormulaValue ValueIn(Cell cell) const;
    [[nodiscard]] ComputedValue ComputedAt(PlanCell place) const;
    [[nodiscard]] int DecimalsOf(Cell cell) const;
    void Load(std::vector<FormulaRow> rows);
    void MarkComputed() const;
    void StoreAll() const;
    void TellCycles(const FormulaNames& names);

    modGrid& driver_;
    const TableSlots& tables_;
    HostTable formulas_;
    std::vector<FormulaProblem> problems_;
    std::vector<FormulaRow> rows_;  // as the formulas of plan_; their `plan` is moved into it
    std::unique_ptr<PlanCalculation> plan_;
    std::uint64_t built_ = 0;  // the build that plan_ belongs to
    std::vector<RowId> lines_;
    std::vector<ColumnId> periods_;
    std::vector<int> placeOfLine_;  // by RowId
    std::vector<int> placeOfPeriod_;
};

}  // namespace planview
