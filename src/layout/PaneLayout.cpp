// SPDX-License-Identifier: MIT
#include "layout/PaneLayout.h"

#include <algorithm>

#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

std::string_view SplitterLabel(Splitter splitter) noexcept {
    constexpr std::array<std::string_view, SplitterCount> Labels{"CTRLSPLIT", "GRIDSPLIT", "TREESPLIT", "MACROSPLIT"};
    return Labels[static_cast<std::size_t>(splitter)];
}

void PaneLayout::LayOut() const {
    TraceLayout(Splitter::CtrlSplit);
    TraceLayout(Splitter::GridSplit);
    Changed();
}

void PaneLayout::LayOut(Splitter splitter) const {
    TraceLayout(splitter);
    Changed();
}

void PaneLayout::MoveSplitter(Splitter splitter, int position) {
    int& kept = positions_[static_cast<std::size_t>(splitter)];
    kept = std::clamp(position, LeastShare, WholeExtent - LeastShare);
    if (TraceEnabled) {
        TraceWrite(SplitterLabel(splitter), "", "Moved", TraceText("{pos: ", kept, "}"));
    }
    Changed();
}

void PaneLayout::MoveSplitters(const std::array<int, SplitterCount>& positions) {
    for (std::size_t i = 0; i < positions.size(); ++i) {
        positions_[i] = std::clamp(positions[i], LeastShare, WholeExtent - LeastShare);
    }
    Changed();
}

void PaneLayout::GoTo(PaneGoal goal) const {
    if (watcher_) {
        watcher_->PaneWanted(goal);
    }
}

void PaneLayout::Resize(int width, int height) {
    width_ = width;
    height_ = height;
    LayOut();
}

void PaneLayout::TraceLayout(Splitter splitter) const {
    if (!TraceEnabled) {
        return;
    }
    switch (splitter) {
        case Splitter::CtrlSplit:
            TraceWrite(SplitterLabel(splitter), "", "Layout",
                       TraceText("{width: ", width_, " - height: ", height_, " - tree: ", settings_.treeShown, "}"));
            break;
        case Splitter::GridSplit:
            TraceWrite(SplitterLabel(splitter), "", "Layout",
                       TraceText("{chart: ", settings_.chartShown, " - zoomed: ", settings_.zoomed, "}"));
            break;
        case Splitter::TreeSplit:
        case Splitter::MacroSplit:
            TraceWrite(SplitterLabel(splitter), "", "Layout", "{}");
            break;
    }
}

void PaneLayout::Changed() const {
    if (watcher_) {
        watcher_->PanesChanged();
    }
}

}  // namespace planview
