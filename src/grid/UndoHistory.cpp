// SPDX-License-Identifier: MIT
#include "grid/UndoHistory.h"

#include <utility>

namespace planview {

void UndoHistory::Record(UndoStep step) {
    if (step.empty()) {
        return;
    }
    while (steps_.size() > done_) {
        changes_ -= steps_.back().size();
        steps_.pop_back();
    }
    changes_ += step.size();
    steps_.push_back(std::move(step));
    while (steps_.size() > MaxSteps || (changes_ > MaxChanges && steps_.size() > 1)) {
        DropOldest();
    }
    done_ = steps_.size();
}

void UndoHistory::DropOldest() {
    changes_ -= steps_.front().size();
    steps_.erase(steps_.begin());
}

const UndoStep& UndoHistory::TakeUndo() {
    undone_ = true;
    return steps_.at(--done_);
}

const UndoStep& UndoHistory::TakeRedo() {
    undone_ = false;
    return steps_.at(done_++);
}

void UndoHistory::PutBack(const std::vector<bool>& failed) {
    const std::size_t taken = undone_ ? done_ : done_ - 1;
    UndoStep stillDone;
    UndoStep stillUndone;
    for (std::size_t i = 0; i < steps_.at(taken).size(); ++i) {
        // What failed is where it was before: done when it was to be undone.
        (failed.at(i) == undone_ ? stillDone : stillUndone).push_back(std::move(steps_[taken][i]));
    }
    auto place = steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(taken));
    done_ = taken;
    if (!stillUndone.empty()) {
        place = steps_.insert(place, std::move(stillUndone));
    }
    if (!stillDone.empty()) {
        steps_.insert(place, std::move(stillDone));
        ++done_;
    }
}

void UndoHistory::Clear() noexcept {
    steps_.clear();
    changes_ = 0;
    done_ = 0;
    ++generation_;
}

}  // namespace planview
