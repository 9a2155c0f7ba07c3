#include "grid/UndoHistory.h"

#include <utility>

namespace planview {

void UndoHistory::Record(UndoStep step) {
    if (step.empty()) {
        return;
    }
    steps_.resize(done_);
    if (steps_.size() >= MaxSteps) {
        steps_.erase(steps_.begin());
    }
    steps_.push_back(std::move(step));
    done_ = steps_.size();
}

const UndoStep& UndoHistory::TakeUndo() {
    return steps_.at(--done_);
}

const UndoStep& UndoHistory::TakeRedo() {
    return steps_.at(done_++);
}

void UndoHistory::Clear() noexcept {
    steps_.clear();
    done_ = 0;
}

}  // namespace planview
