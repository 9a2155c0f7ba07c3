// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

#include "calculation/PlanFormula.h"
#include "calculation/PlanGraph.h"
#include "calculation/PlanValues.h"

namespace planview {

/// Keeps the computed cells of a plan equal to their formulas. After a change of some cells exactly those are computed
/// again that depend on them, each once and after all that it reads.
class PlanCalculation {
public:
    PlanCalculation(std::vector<PlanFormula> formulas, const PlanSize& size);
    PlanCalculation(const PlanCalculation&) = delete;
    PlanCalculation& operator=(const PlanCalculation&) = delete;

    /// Values that somebody else has entered; ComputeAll() or Compute() follows.
    void Set(PlanCell cell, FormulaValue value) { values_.Set(cell, value); }
    [[nodiscard]] FormulaValue At(PlanCell cell) const { return values_.At(cell); }

    void ComputeAll();
    /// What depends on these cells. Answers the computed cells whose values are others now, each once; a cell that is
    /// among `changed` and is computed itself gets its value back, and is answered, too.
    [[nodiscard]] std::vector<PlanCell> Compute(std::span<const PlanCell> changed);

    [[nodiscard]] const PlanSize& Size() const noexcept { return size_; }
    [[nodiscard]] const PlanGraph& Graph() const noexcept { return graph_; }
    [[nodiscard]] const std::vector<PlanFormula>& Formulas() const noexcept { return formulas_; }
    /// The formula that computes this cell; null for a leaf.
    [[nodiscard]] const PlanFormula* FormulaOf(PlanCell cell) const;
    [[nodiscard]] bool IsComputed(PlanCell cell) const { return graph_.FormulaOf(cell) >= 0; }

private:
    /// The values of all lines, or of all columns, as a formula of that axis reads them.
    class Source final : public FormulaSource {
    public:
        Source(const PlanCalculation& plan, FormulaAxis axis) : plan_(plan), axis_(axis) {}
        [[nodiscard]] FormulaSpan TableLine(int line) override {
            return axis_ == FormulaAxis::Lines ? plan_.values_.Line(line, plan_.size_.periods)
                                               : plan_.values_.Column(line, plan_.size_.lines);
        }

    private:
        const PlanCalculation& plan_;
        FormulaAxis axis_;
    };

    void ComputeStep(const PlanGraph::Step& step);
    void ComputeNode(int node, std::span<const int> across);
    void MarkReaders(PlanCell cell);
    void Mark(int formula, int across);
    [[nodiscard]] bool TakeMark(int formula, int across);
    [[nodiscard]] static std::size_t Index(int index) noexcept { return static_cast<std::size_t>(index); }

    std::vector<PlanFormula> formulas_;
    PlanSize size_;
    PlanGraph graph_;
    PlanValues values_;
    // Of the computation that is under way
    bool all_ = false;                      ///< every cell is computed, so that nothing needs to be marked
    std::vector<std::vector<char>> marks_;  ///< by formula and across: must be computed again
    std::vector<int> marked_;               ///< steps with a mark: a heap, the first one at the front
    std::vector<char> isMarked_;            ///< by step
    std::vector<PlanCell> changed_;
};

}  // namespace planview
