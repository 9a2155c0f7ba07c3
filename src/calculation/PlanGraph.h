// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <span>
#include <vector>

#include "calculation/PlanFormula.h"

namespace planview {

/// Which formula computes which cells, and in which order. A node is a formula over a run of its cells, so that a plan
/// has some nodes for each formula and not one for each cell.
class PlanGraph {
public:
    struct Node {
        int formula;
        std::vector<int> across;  ///< ascending
    };
    /// Nodes that are computed one behind the other. Those of a step through time read each other's earlier periods:
    /// they are computed together, period by period.
    struct Step {
        std::vector<int> nodes;
        bool throughTime = false;
    };

    PlanGraph(std::span<const PlanFormula> formulas, const PlanSize& size);

    [[nodiscard]] const std::vector<Step>& Steps() const noexcept { return steps_; }
    [[nodiscard]] const Node& At(int node) const { return nodes_[static_cast<std::size_t>(node)]; }
    [[nodiscard]] int StepOf(int node) const { return stepOf_[static_cast<std::size_t>(node)]; }
    /// The formula that computes the cell; -1 for a leaf. A formula in a cycle computes nothing, but its cells are
    /// still no leaves.
    [[nodiscard]] int FormulaOf(PlanCell cell) const;
    [[nodiscard]] int NodeOf(PlanCell cell) const;
    /// Formulas that need each other's values of the same cells; each group once, as they stand in `formulas`.
    [[nodiscard]] const std::vector<std::vector<int>>& Cycles() const noexcept { return cycles_; }

    /// Calls `tell(formula, across)` for each cell that reads this one directly.
    template <class Tell>
    void ForEachReader(PlanCell cell, const Tell& tell) const;

private:
    struct Reader {
        int formula;
        const FormulaRead* read;
    };

    void PlaceFormulas();
    void MakeNodes();
    void AddNodes(int formula);
    void LinkNodes();
    void OrderNodes();
    void AddGroup(const std::vector<int>& group);
    [[nodiscard]] bool OrderThroughTime(std::vector<int>& group) const;
    [[nodiscard]] bool ReadsShifted(int formula) const;
    [[nodiscard]] const PlanFormula& FormulaAt(int formula) const {
        return formulas_[static_cast<std::size_t>(formula)];
    }
    [[nodiscard]] static std::size_t Index(int index) noexcept { return static_cast<std::size_t>(index); }
    [[nodiscard]] std::vector<int> NodesRead(int node) const;

    std::span<const PlanFormula> formulas_;
    PlanSize size_;
    std::vector<std::vector<FormulaRead>> reads_;  // by formula
    std::vector<int> ofLine_;                      // the formula of each line, -1 without one
    std::vector<int> ofPeriod_;
    std::map<PlanCell, int> ofCell_;
    std::vector<Node> nodes_;
    std::vector<std::vector<int>> nodeAt_;  // by formula and across
    std::vector<std::vector<int>> needs_;   // by node
    std::vector<std::vector<Reader>> readersOfLine_;
    std::vector<std::vector<Reader>> readersOfPeriod_;
    std::vector<Step> steps_;
    std::vector<int> stepOf_;
    std::vector<std::vector<int>> cycles_;
};

template <class Tell>
void PlanGraph::ForEachReader(PlanCell cell, const Tell& tell) const {
    for (const auto* readers : {&readersOfLine_[Index(cell.line)], &readersOfPeriod_[Index(cell.period)]}) {
        for (const Reader& reader : *readers) {
            const PlanFormula& formula = FormulaAt(reader.formula);
            const FormulaRead& read = *reader.read;
            const int across = formula.Across(cell);
            const int count = size_.Across(formula.axis);
            int first = across - read.to;
            int last = across - read.from;
            if (read.firstPeriod >= 0) {
                if (across < read.firstPeriod || across > read.lastPeriod) {
                    continue;
                }
                first = 0;
                last = count - 1;
            }
            first = std::max(first, formula.only.value_or(0));
            last = std::min(last, formula.only.value_or(count - 1));
            for (int each = first; each <= last; ++each) {
                if (NodeOf(formula.CellAt(each)) >= 0 && FormulaOf(formula.CellAt(each)) == reader.formula) {
                    tell(reader.formula, each);
                }
            }
        }
    }
}

}  // namespace planview
