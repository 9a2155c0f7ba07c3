// SPDX-License-Identifier: MIT
#include "grid/UndoHistory.h"

namespace planview {

void UndoHistory::Record(HistoryStep step) {
    if (step.Size() == 0) {
        return;
    }
    while (steps_.size() > done_) {
        changes_ -= steps_.back().Size();
        steps_.pop_back();
    }
    changes_ += step.Size();
    steps_.push_back(std::move(step));
    while (steps_.size() > MaxSteps || (changes_ > MaxChanges && steps_.size() > 1)) {
        DropOldest();
    }
    done_ = steps_.size();
}

void UndoHistory::DropOldest() {
    changes_ -= steps_.front().Size();
    steps_.erase(steps_.begin());
}

const HistoryStep& UndoHistory::TakeUndo() {
    undone_ = true;
    return steps_.at(--done_);
}

const HistoryStep& UndoHistory::TakeRedo() {
    undone_ = false;
    return steps_.at(done_++);
}

void UndoHistory::PutBack(const std::vector<bool>& failed) {
    const std::size_t taken = undone_ ? done_ : done_ - 1;
    HistoryStep stillDone;
    HistoryStep stillUndone;
    UndoStep& cells = steps_.at(taken).cells;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        // What failed is where it was before: done when it was to be undone.
        (failed.at(i) == undone_ ? stillDone : stillUndone).cells.push_back(std::move(cells[i]));
    }
    auto place = steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(taken));
    done_ = taken;
    if (stillUndone.Size() > 0) {
        place = steps_.insert(place, std::move(stillUndone));
    }
    if (stillDone.Size() > 0) {
        steps_.insert(place, std::move(stillDone));
        ++done_;
    }
}

UndoHistory::Emptied UndoHistory::Leave(const std::unordered_set<std::string>& gone) {
    ++generation_;
    Emptied emptied;
    std::vector<HistoryStep> left;
    std::size_t done = 0;
    changes_ = 0;
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        HistoryStep& step = steps_[i];
        std::erase_if(step.cells, [&](const CellChange& change) {
            return gone.contains(change.cell.column) || gone.contains(change.cell.row);
        });
        std::erase_if(step.tracks, [&](const TrackChange& change) { return gone.contains(change.key); });
        if (step.Size() > 0) {
            changes_ += step.Size();
            done += i < done_ ? 1 : 0;
            left.push_back(std::move(step));
        } else if (i < done_) {
            emptied.done.push_back(done_ - 1 - i);
        } else {
            emptied.undone.push_back(i - done_);
        }
    }
    steps_ = std::move(left);
    done_ = done;
    return emptied;
}

void UndoHistory::Clear() noexcept {
    steps_.clear();
    changes_ = 0;
    done_ = 0;
    ++generation_;
}

}  // namespace planview
