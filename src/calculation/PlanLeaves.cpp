// SPDX-License-Identifier: MIT
#include "calculation/PlanLeaves.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <utility>

namespace planview {

namespace {

/// Takes the expressions of computed cells apart.
class LeafCollector {
public:
    explicit LeafCollector(const PlanCalculation& plan) : plan_(plan) {}

    /// Replaces computed cells by what they are made of until only leaves are left; false where one is no weighted sum.
    /// The one that is computed last goes first, so that each is taken apart once, with its whole weight.
    [[nodiscard]] bool TakeApart(PlanCell total) {
        if (!AddCell(total, 1)) {
            return false;
        }
        while (!computed_.empty()) {
            const auto last = std::prev(computed_.end());
            const auto [cell, weight] = last->second;
            computed_.erase(last);
            const PlanFormula& formula = *plan_.FormulaOf(cell);
            if (!Add(formula.bound.expression, formula, formula.Across(cell), weight)) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] std::vector<WeightedLeaf> Leaves() const {
        std::vector<WeightedLeaf> leaves;
        for (const auto& [cell, weight] : weights_) {
            leaves.push_back({cell, weight});
        }
        return leaves;
    }

private:
    using Operation = FormulaOperation;

    /// When a cell is computed: by step, within one through time by period, then by its place in the step.
    struct Turn {
        int step;
        int across;
        std::ptrdiff_t place;
        friend auto operator<=>(const Turn&, const Turn&) = default;
    };

    [[nodiscard]] bool AddCell(PlanCell cell, double weight) {
        const PlanFormula* formula = plan_.FormulaOf(cell);
        if (!formula) {
            weights_[cell] += weight;
            return true;
        }
        const PlanGraph& graph = plan_.Graph();
        const int node = graph.NodeOf(cell);
        const int step = node < 0 ? -1 : graph.StepOf(node);
        if (!formula->bound.fault.empty() || step < 0) {
            return false;
        }
        const std::vector<int>& nodes = graph.Steps()[static_cast<std::size_t>(step)].nodes;
        const Turn turn{step, formula->Across(cell), std::find(nodes.begin(), nodes.end(), node) - nodes.begin()};
        computed_.try_emplace(turn, cell, 0.0).first->second.second += weight;
        return true;
    }

    [[nodiscard]] bool Add(const FormulaExpression& part, const PlanFormula& formula, int across, double weight) {
        switch (part.operation) {
            case Operation::Line:
            case Operation::Element:
            case Operation::Area:
                return AddCells(CellsOf(part, formula, across), weight);
            case Operation::Negate:
                return Add(part.arguments[0], formula, across, -weight);
            case Operation::Add:
            case Operation::Subtract: {
                const double second = part.operation == Operation::Add ? weight : -weight;
                return Add(part.arguments[0], formula, across, weight) &&
                       Add(part.arguments[1], formula, across, second);
            }
            case Operation::Multiply:
            case Operation::Divide:
                return AddScaled(part, formula, across, weight);
            case Operation::Sum:
                for (const FormulaExpression& argument : part.arguments) {
                    if (!Add(argument, formula, across, weight)) {
                        return false;
                    }
                }
                return true;
            case Operation::Average:
                return AddMean(part, formula, across, weight);
            case Operation::Shift: {
                const int shifted = across + static_cast<int>(part.number);
                return shifted < 0 || shifted >= formula.bound.periods ||
                       Add(part.arguments[0], formula, shifted, weight);
            }
            default:
                return false;
        }
    }

    /// A factor or divisor that is a constant.
    [[nodiscard]] bool AddScaled(const FormulaExpression& part, const PlanFormula& formula, int across, double weight) {
        const FormulaExpression& left = part.arguments[0];
        const FormulaExpression& right = part.arguments[1];
        if (right.operation == Operation::Constant && right.number != 0) {
            const double factor = part.operation == Operation::Multiply ? right.number : 1 / right.number;
            return Add(left, formula, across, weight * factor);
        }
        return part.operation == Operation::Multiply && left.operation == Operation::Constant && left.number != 0 &&
               Add(right, formula, across, weight * left.number);
    }

    [[nodiscard]] bool AddMean(const FormulaExpression& part, const PlanFormula& formula, int across, double weight) {
        std::vector<PlanCell> cells;
        for (const FormulaExpression& argument : part.arguments) {
            if (!IsOfTable(argument.operation)) {
                return false;
            }
            const std::vector<PlanCell> its = CellsOf(argument, formula, across);
            cells.insert(cells.end(), its.begin(), its.end());
        }
        std::vector<PlanCell> filled;
        for (const PlanCell cell : cells) {
            if (plan_.At(cell).IsNumber()) {
                filled.push_back(cell);
            }
        }
        const std::vector<PlanCell>& counted = filled.empty() ? cells : filled;
        return AddCells(counted, weight / static_cast<double>(counted.size()));
    }

    [[nodiscard]] bool AddCells(const std::vector<PlanCell>& cells, double weight) {
        for (const PlanCell cell : cells) {
            if (!AddCell(cell, weight)) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] static std::vector<PlanCell> CellsOf(const FormulaExpression& operand, const PlanFormula& formula,
                                                       int across) {
        const bool named = operand.range.HasPeriods();
        const int first = named ? operand.range.firstPeriod : across;
        const int last = named ? operand.range.lastPeriod : across;
        std::vector<PlanCell> cells;
        for (const int line : operand.lines) {
            for (int each = first; each <= last; ++each) {
                cells.push_back(CellOf(formula.axis, line, each));
            }
        }
        return cells;
    }

    const PlanCalculation& plan_;
    std::map<PlanCell, double> weights_;                    // of leaves
    std::map<Turn, std::pair<PlanCell, double>> computed_;  // to be taken apart
};

}  // namespace

std::optional<std::vector<WeightedLeaf>> LeavesOf(const PlanCalculation& plan, PlanCell total) {
    LeafCollector collector(plan);
    if (!plan.IsComputed(total) || !collector.TakeApart(total)) {
        return std::nullopt;
    }
    return collector.Leaves();
}

}  // namespace planview
