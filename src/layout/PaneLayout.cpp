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

void PaneLayout::Apply(bool treeShown, bool chartShown, bool zoomed) {
    treeShown_ = treeShown;
    chartShown_ = chartShown;
    zoomed_ = zoomed;
    LayOut(Splitter::CtrlSplit);
    LayOut(Splitter::GridSplit);
    Changed();
}

void PaneLayout::ShowTree(bool shown) {
    treeShown_ = shown;
    LayOut(Splitter::CtrlSplit);
    Changed();
}

void PaneLayout::SetZoomed(bool zoomed) {
    zoomed_ = zoomed;
    LayOut(Splitter::GridSplit);
    Changed();
}

void PaneLayout::LayOutTreeSplitter() const {
    LayOut(Splitter::TreeSplit);
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

void PaneLayout::Resize(int width, int height) {
    width_ = width;
    height_ = height;
    LayOut(Splitter::CtrlSplit);
    LayOut(Splitter::GridSplit);
    Changed();
}

void PaneLayout::LayOut(Splitter splitter) const {
    if (!TraceEnabled) {
        return;
    }
    switch (splitter) {
        case Splitter::CtrlSplit:
            TraceWrite(SplitterLabel(splitter), "", "Layout",
                       TraceText("{width: ", width_, " - height: ", height_, " - tree: ", treeShown_, "}"));
            break;
        case Splitter::GridSplit:
            TraceWrite(SplitterLabel(splitter), "", "Layout",
                       TraceText("{chart: ", chartShown_, " - zoomed: ", zoomed_, "}"));
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
