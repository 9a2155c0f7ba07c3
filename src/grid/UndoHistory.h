// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <planview/Variant.h>

#include "components/GridTypes.h"

namespace planview {

/// One cell's change by the user: what TAB held and what it holds now.
struct CellChange {
    CellKey cell;
    Variant before;
    Variant after;
};

/// What one action of the user changed; undone and redone as one.
using UndoStep = std::vector<CellChange>;

struct IndexAxis;

/// One change by the user of a column or row itself: a field of its index table, or its place on the screen.
struct TrackChange {
    const IndexAxis* axis = nullptr;
    std::string key;
    std::string_view field;
    Variant before;
    Variant after;
};

/// What one action of the user did to columns and rows.
using TrackStep = std::vector<TrackChange>;

/// One action of the user; only one of both holds anything.
struct HistoryStep {
    UndoStep cells{};
    TrackStep tracks{};
    [[nodiscard]] std::size_t Size() const noexcept { return cells.size() + tracks.size(); }
};

/// The user's changes in their order, for undo and redo. Steps that hold nothing are not kept.
class UndoHistory {
public:
    /// The most steps that are kept; each further one drops the oldest.
    static constexpr std::size_t MaxSteps = 1000;
    /// The most changes in all of them; the last step is kept whatever its size.
    static constexpr std::size_t MaxChanges = 500000;

    void Record(UndoStep step) { Record(HistoryStep{std::move(step), {}}); }
    void Record(TrackStep step) { Record(HistoryStep{{}, std::move(step)}); }
    [[nodiscard]] bool CanUndo() const noexcept { return done_ > 0; }
    [[nodiscard]] bool CanRedo() const noexcept { return done_ < steps_.size(); }
    /// The step to undo, which then can be redone; the reference holds until the next Record() or Clear().
    [[nodiscard]] const HistoryStep& TakeUndo();
    [[nodiscard]] const HistoryStep& TakeRedo();
    /// Some values of the step taken last, marked by their places in it, could not be made: they become a step of
    /// their own that is still to be undone or redone.
    void PutBack(const std::vector<bool>& failed);
    void Clear() noexcept;
    /// The steps that Leave() has emptied, counted from the one to be undone next and from the one to be redone next.
    struct Emptied {
        std::vector<std::size_t> done;
        std::vector<std::size_t> undone;
    };
    /// Columns and rows are gone: what was changed in them drops out of its step, and a step with nothing left drops.
    Emptied Leave(const std::unordered_set<std::string>& gone);
    /// Counts up with every Clear() and Leave(): what was begun before one belongs to no history any more.
    [[nodiscard]] std::uint64_t Generation() const noexcept { return generation_; }

private:
    void Record(HistoryStep step);
    void DropOldest();

    std::vector<HistoryStep> steps_;
    std::uint64_t generation_ = 0;
    bool undone_ = false;      // the step taken last was taken to be undone
    std::size_t changes_ = 0;  // in all steps
    std::size_t done_ = 0;     // the steps before this one are done, the others undone
};

}  // namespace planview
