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
    return steps_.at(--done_);
}

const UndoStep& UndoHistory::TakeRedo() {
    return steps_.at(done_++);
}

void UndoHistory::Clear() noexcept {
    steps_.clear();
    changes_ = 0;
    done_ = 0;
}

}  // namespace planview
