// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
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

/// The user's value changes in their order, for undo and redo. Steps that hold nothing are not kept.
class UndoHistory {
public:
    /// The most steps that are kept; each further one drops the oldest.
    static constexpr std::size_t MaxSteps = 1000;
    /// The most cell changes in all of them; the last step is kept whatever its size.
    static constexpr std::size_t MaxChanges = 500000;

    void Record(UndoStep step);
    [[nodiscard]] bool CanUndo() const noexcept { return done_ > 0; }
    [[nodiscard]] bool CanRedo() const noexcept { return done_ < steps_.size(); }
    /// The step to undo, which then can be redone; the reference holds until the next Record() or Clear().
    [[nodiscard]] const UndoStep& TakeUndo();
    [[nodiscard]] const UndoStep& TakeRedo();
    /// Some changes of the step taken last, marked by their places in it, could not be made: they become a step of
    /// their own that is still to be undone or redone.
    void PutBack(const std::vector<bool>& failed);
    void Clear() noexcept;
    /// Counts up with every Clear(): what was begun before one belongs to no history any more.
    [[nodiscard]] std::uint64_t Generation() const noexcept { return generation_; }

private:
    void DropOldest();

    std::vector<UndoStep> steps_;
    std::uint64_t generation_ = 0;
    bool undone_ = false;      // the step taken last was taken to be undone
    std::size_t changes_ = 0;  // in all steps
    std::size_t done_ = 0;     // the steps before this one are done, the others undone
};

}  // namespace planview
