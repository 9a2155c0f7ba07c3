#include "layout/PaneLayout.h"

#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

void PaneLayout::Apply(bool treeShown, bool chartShown, bool zoomed) {
    treeShown_ = treeShown;
    chartShown_ = chartShown;
    zoomed_ = zoomed;
    LayOutControlSplitter();
    LayOutGridSplitter();
}

void PaneLayout::ShowTree(bool shown) {
    treeShown_ = shown;
    LayOutControlSplitter();
}

void PaneLayout::Resize(int width, int height) {
    width_ = width;
    height_ = height;
    LayOutControlSplitter();
    LayOutGridSplitter();
}

void PaneLayout::LayOutControlSplitter() const {
    if (TraceEnabled) {
        TraceWrite("CTRLSPLIT", "", "Layout",
                   TraceText("{width: ", width_, " - height: ", height_, " - tree: ", treeShown_, "}"));
    }
}

void PaneLayout::LayOutGridSplitter() const {
    if (TraceEnabled) {
        TraceWrite("GRIDSPLIT", "", "Layout", TraceText("{chart: ", chartShown_, " - zoomed: ", zoomed_, "}"));
    }
}

void PaneLayout::LayOutTreeSplitter() const {
    if (TraceEnabled) {
        TraceWrite("TREESPLIT", "", "Layout", "{}");
    }
}

}  // namespace planview
