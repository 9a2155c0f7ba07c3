// SPDX-License-Identifier: MIT
#include "calculation/PlanCalculation.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace planview {

namespace {

bool AreSame(FormulaValue left, FormulaValue right) noexcept {
    return left.kind == right.kind && (!left.IsNumber() || left.number == right.number);
}

}  // namespace

PlanCalculation::PlanCalculation(std::vector<PlanFormula> formulas, const PlanSize& size)
    : formulas_(std::move(formulas)),
      size_(size),
      graph_(formulas_, size_),
      values_(size.allLines, size.allPeriods),
      isMarked_(graph_.Steps().size(), 0) {
    for (const PlanFormula& formula : formulas_) {
        marks_.emplace_back(Index(size_.Across(formula.axis)), 0);
    }
}

const PlanFormula* PlanCalculation::FormulaOf(PlanCell cell) const {
    const int formula = graph_.FormulaOf(cell);
    return formula < 0 ? nullptr : &formulas_[Index(formula)];
}

void PlanCalculation::ComputeAll() {
    all_ = true;
    for (const PlanGraph::Step& step : graph_.Steps()) {
        ComputeStep(step);
    }
    all_ = false;
    changed_.clear();
}

std::vector<PlanCell> PlanCalculation::Compute(std::span<const PlanCell> changed) {
    changed_.clear();
    for (const PlanCell cell : changed) {
        if (const int formula = graph_.FormulaOf(cell); formula >= 0) {
            Mark(formula, formulas_[Index(formula)].Across(cell));
        }
        MarkReaders(cell);
    }
    while (!marked_.empty()) {
        std::pop_heap(marked_.begin(), marked_.end(), std::greater<>());
        const int step = marked_.back();
        marked_.pop_back();
        isMarked_[Index(step)] = 0;
        ComputeStep(graph_.Steps()[Index(step)]);
    }
    return std::exchange(changed_, {});
}

void PlanCalculation::ComputeStep(const PlanGraph::Step& step) {
    std::vector<int> across;
    if (!step.throughTime) {
        const int node = step.nodes.front();
        const PlanGraph::Node& its = graph_.At(node);
        for (const int each : its.across) {
            if (TakeMark(its.formula, each)) {
                across.push_back(each);
            }
        }
        ComputeNode(node, across);
        return;
    }
    const int count = size_.Across(formulas_[Index(graph_.At(step.nodes.front()).formula)].axis);
    for (int each = 0; each < count; ++each) {
        for (const int node : step.nodes) {
            const PlanGraph::Node& its = graph_.At(node);
            if (std::binary_search(its.across.begin(), its.across.end(), each) && TakeMark(its.formula, each)) {
                ComputeNode(node, std::span(&each, 1));
            }
        }
    }
}

void PlanCalculation::ComputeNode(int node, std::span<const int> across) {
    if (across.empty()) {
        return;
    }
    const PlanFormula& formula = formulas_[Index(graph_.At(node).formula)];
    Source source(*this, formula.axis);
    FormulaValues values(across.size(), {});
    EvaluateFormula(formula.bound, source, across, values);
    for (std::size_t i = 0; i < across.size(); ++i) {
        const PlanCell cell = formula.CellAt(across[i]);
        const FormulaValue value = values.At(i);
        if (AreSame(values_.At(cell), value)) {
            continue;
        }
        values_.Set(cell, value);
        if (!all_) {
            changed_.push_back(cell);
            MarkReaders(cell);
        }
    }
}

void PlanCalculation::MarkReaders(PlanCell cell) {
    graph_.ForEachReader(cell, [&](int formula, int across) { Mark(formula, across); });
}

void PlanCalculation::Mark(int formula, int across) {
    char& mark = marks_[Index(formula)][Index(across)];
    if (mark != 0) {
        return;
    }
    const int step = graph_.StepOf(graph_.NodeOf(formulas_[Index(formula)].CellAt(across)));
    if (step < 0) {
        return;  // in a cycle
    }
    mark = 1;
    if (isMarked_[Index(step)] == 0) {
        isMarked_[Index(step)] = 1;
        marked_.push_back(step);
        std::push_heap(marked_.begin(), marked_.end(), std::greater<>());
    }
}

bool PlanCalculation::TakeMark(int formula, int across) {
    return all_ || std::exchange(marks_[Index(formula)][Index(across)], 0) != 0;
}

}  // namespace planview
