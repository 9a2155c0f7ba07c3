// SPDX-License-Identifier: MIT
#include "calculation/PlanGraph.h"

#include <algorithm>

namespace planview {

PlanGraph::PlanGraph(std::span<const PlanFormula> formulas, const PlanSize& size) : formulas_(formulas), size_(size) {
    PlaceFormulas();
    MakeNodes();
    LinkNodes();
    OrderNodes();
}

void PlanGraph::PlaceFormulas() {
    ofLine_.assign(Index(size_.allLines), -1);
    ofPeriod_.assign(Index(size_.allPeriods), -1);
    readersOfLine_.resize(Index(size_.allLines));
    readersOfPeriod_.resize(Index(size_.allPeriods));
    reads_.reserve(formulas_.size());
    for (std::size_t i = 0; i < formulas_.size(); ++i) {
        const PlanFormula& formula = formulas_[i];
        const auto number = static_cast<int>(i);
        if (formula.only) {
            ofCell_[formula.CellAt(*formula.only)] = number;
        } else {
            (formula.axis == FormulaAxis::Lines ? ofLine_ : ofPeriod_)[Index(formula.target)] = number;
        }
        reads_.push_back(ReadsOf(formula.bound));
        auto& readers = formula.axis == FormulaAxis::Lines ? readersOfLine_ : readersOfPeriod_;
        for (const FormulaRead& read : reads_.back()) {
            for (const int line : read.lines) {
                readers[Index(line)].push_back({number, &read});
            }
        }
    }
}

int PlanGraph::FormulaOf(PlanCell cell) const {
    if (!ofCell_.empty()) {
        if (const auto found = ofCell_.find(cell); found != ofCell_.end()) {
            return found->second;
        }
    }
    const int line = cell.period < size_.periods ? ofLine_[Index(cell.line)] : -1;
    const int period = cell.line < size_.lines ? ofPeriod_[Index(cell.period)] : -1;
    if (line < 0 || period < 0) {
        return std::max(line, period);
    }
    return FormulaAt(line).solveOrder > FormulaAt(period).solveOrder ? line : period;
}

int PlanGraph::NodeOf(PlanCell cell) const {
    const int formula = FormulaOf(cell);
    return formula < 0 ? -1 : nodeAt_[Index(formula)][Index(FormulaAt(formula).Across(cell))];
}

bool PlanGraph::ReadsShifted(int formula) const {
    const std::vector<FormulaRead>& reads = reads_[Index(formula)];
    return std::any_of(reads.begin(), reads.end(), [](const FormulaRead& read) {
        return read.firstPeriod < 0 && (read.from != 0 || read.to != 0);
    });
}

void PlanGraph::MakeNodes() {
    nodeAt_.resize(formulas_.size());
    for (int formula = 0; formula < static_cast<int>(formulas_.size()); ++formula) {
        AddNodes(formula);
    }
}

/// One node for the cells that no formula of the other axis stands at, one for each of the others. A formula that reads
/// other periods than the one at hand has a node for each run between those, so that a running balance may pass a
/// year's total that is computed from it.
void PlanGraph::AddNodes(int formula) {
    const PlanFormula& its = FormulaAt(formula);
    const std::vector<int>& crossing = its.axis == FormulaAxis::Lines ? ofPeriod_ : ofLine_;
    const bool inRuns = ReadsShifted(formula);
    std::vector<int>& nodeAt = nodeAt_[Index(formula)];
    nodeAt.assign(Index(size_.Across(its.axis)), -1);
    int run = -1;
    for (int across = its.only.value_or(0); across < static_cast<int>(nodeAt.size()); ++across) {
        const bool crosses = crossing[Index(across)] >= 0;
        const bool own = FormulaOf(its.CellAt(across)) == formula;
        if (crosses && inRuns) {
            run = -1;
        }
        if (own) {
            if (crosses || run < 0) {
                nodes_.push_back({formula, {}});
                nodeAt[Index(across)] = static_cast<int>(nodes_.size()) - 1;
                run = crosses ? run : nodeAt[Index(across)];
            } else {
                nodeAt[Index(across)] = run;
            }
            nodes_[Index(nodeAt[Index(across)])].across.push_back(across);
        }
        if (its.only) {
            break;
        }
    }
}

/// The nodes that compute what this one reads, each once.
std::vector<int> PlanGraph::NodesRead(int node) const {
    const Node& its = At(node);
    const PlanFormula& formula = FormulaAt(its.formula);
    const int count = size_.Across(formula.axis);
    std::vector<int> nodes;
    for (const FormulaRead& read : reads_[Index(its.formula)]) {
        std::vector<char> covered(Index(count), 0);
        const auto cover = [&](int first, int last) {
            for (int across = std::max(first, 0); across <= std::min(last, count - 1); ++across) {
                covered[Index(across)] = 1;
            }
        };
        if (read.firstPeriod >= 0) {
            cover(read.firstPeriod, read.lastPeriod);
        } else if (read.from == FormulaRead::AllBefore) {
            cover(0, its.across.back() + read.to);
        } else {
            for (const int across : its.across) {
                cover(across + read.from, across + read.to);
            }
        }
        const std::vector<int>& along = formula.axis == FormulaAxis::Lines ? ofLine_ : ofPeriod_;
        const std::vector<int>& crossing = formula.axis == FormulaAxis::Lines ? ofPeriod_ : ofLine_;
        for (const int line : read.lines) {
            for (int across = 0; across < count; ++across) {
                const bool computed = along[Index(line)] >= 0 || crossing[Index(across)] >= 0 || !ofCell_.empty();
                if (covered[Index(across)] != 0 && computed) {
                    nodes.push_back(NodeOf(CellOf(formula.axis, line, across)));
                }
            }
        }
    }
    std::sort(nodes.begin(), nodes.end());
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    nodes.erase(std::remove(nodes.begin(), nodes.end(), -1), nodes.end());
    return nodes;
}

void PlanGraph::LinkNodes() {
    for (int node = 0; node < static_cast<int>(nodes_.size()); ++node) {
        needs_.push_back(NodesRead(node));
    }
}

namespace {

/// Groups of nodes that need each other, those needed first (Tarjan, "Depth-first search and linear graph algorithms",
/// 1972), without recursion, because chains of formulas may be long.
class Groups {
public:
    explicit Groups(const std::vector<std::vector<int>>& needs)
        : needs_(needs), number_(needs.size(), -1), lowest_(needs.size(), 0), onStack_(needs.size(), false) {
        for (int node = 0; node < static_cast<int>(needs.size()); ++node) {
            if (number_[At(node)] < 0) {
                Visit(node);
            }
        }
    }
    [[nodiscard]] const std::vector<std::vector<int>>& InOrder() const noexcept { return groups_; }

private:
    struct Frame {
        int node;
        std::size_t next;
    };
    static std::size_t At(int index) noexcept { return static_cast<std::size_t>(index); }

    void Enter(int node) {
        number_[At(node)] = lowest_[At(node)] = count_++;
        stack_.push_back(node);
        onStack_[At(node)] = true;
        frames_.push_back({node, 0});
    }

    void Visit(int start) {
        Enter(start);
        while (!frames_.empty()) {
            Frame& frame = frames_.back();
            const int node = frame.node;
            if (frame.next < needs_[At(node)].size()) {
                const int needed = needs_[At(node)][frame.next++];
                if (number_[At(needed)] < 0) {
                    Enter(needed);
                } else if (onStack_[At(needed)]) {
                    lowest_[At(node)] = std::min(lowest_[At(node)], number_[At(needed)]);
                }
                continue;
            }
            frames_.pop_back();
            if (!frames_.empty()) {
                int& lowest = lowest_[At(frames_.back().node)];
                lowest = std::min(lowest, lowest_[At(node)]);
            }
            if (lowest_[At(node)] == number_[At(node)]) {
                Close(node);
            }
        }
    }

    void Close(int first) {
        std::vector<int> group;
        int node = -1;
        do {
            node = stack_.back();
            stack_.pop_back();
            onStack_[At(node)] = false;
            group.push_back(node);
        } while (node != first);
        std::sort(group.begin(), group.end());
        groups_.push_back(std::move(group));
    }

    const std::vector<std::vector<int>>& needs_;
    std::vector<int> number_;
    std::vector<int> lowest_;
    std::vector<bool> onStack_;
    std::vector<int> stack_;
    std::vector<Frame> frames_;
    std::vector<std::vector<int>> groups_;
    int count_ = 0;
};

}  // namespace

void PlanGraph::OrderNodes() {
    stepOf_.assign(nodes_.size(), -1);
    const Groups groups(needs_);
    for (const std::vector<int>& group : groups.InOrder()) {
        AddGroup(group);
    }
}

void PlanGraph::AddGroup(const std::vector<int>& group) {
    const std::vector<int>& needs = needs_[Index(group.front())];
    const bool alone = group.size() == 1 && std::find(needs.begin(), needs.end(), group.front()) == needs.end();
    Step step{group, !alone};
    if (!alone && !OrderThroughTime(step.nodes)) {
        std::vector<int> cycle;
        for (const int node : group) {
            cycle.push_back(At(node).formula);
        }
        std::sort(cycle.begin(), cycle.end());
        cycle.erase(std::unique(cycle.begin(), cycle.end()), cycle.end());
        cycles_.push_back(std::move(cycle));
        return;
    }
    for (const int node : step.nodes) {
        stepOf_[Index(node)] = static_cast<int>(steps_.size());
    }
    steps_.push_back(std::move(step));
}

/// Sorts a group whose nodes need each other so that each period can be computed from earlier ones and from nodes
/// before it; false where there is no such order.
bool PlanGraph::OrderThroughTime(std::vector<int>& group) const {
    const FormulaAxis axis = FormulaAt(At(group.front()).formula).axis;
    std::vector<std::vector<int>> needs(group.size());  // in the same period
    for (std::size_t i = 0; i < group.size(); ++i) {
        const int number = At(group[i]).formula;
        const PlanFormula& formula = FormulaAt(number);
        if (formula.axis != axis || formula.only) {
            return false;
        }
        for (const FormulaRead& read : reads_[Index(number)]) {
            for (std::size_t other = 0; other < group.size(); ++other) {
                const int target = FormulaAt(At(group[other]).formula).target;
                if (std::find(read.lines.begin(), read.lines.end(), target) == read.lines.end()) {
                    continue;
                }
                if (read.firstPeriod >= 0 || read.to > 0) {
                    return false;
                }
                if (read.to == 0) {
                    needs[i].push_back(static_cast<int>(other));
                }
            }
        }
    }
    std::vector<int> ordered;
    const Groups groups(needs);
    for (const std::vector<int>& one : groups.InOrder()) {
        const std::vector<int>& its = needs[Index(one.front())];
        if (one.size() > 1 || std::find(its.begin(), its.end(), one.front()) != its.end()) {
            return false;
        }
        ordered.push_back(group[Index(one.front())]);
    }
    group = std::move(ordered);
    return true;
}

}  // namespace planview
