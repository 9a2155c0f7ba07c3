#pragma once

namespace planview {

/// Which panes the control shows: tree, grid, chart and the macro editor with the splitters between them.
///
/// Only the grid pane has contents so far; the layout keeps the states by which the other ones will be shown, so that
/// the host's calls have their lasting effect.
class PaneLayout {
public:
    /// While layout mode is off the tree pane stays hidden.
    void SetLayoutMode(bool on) noexcept { layoutMode_ = on; }
    [[nodiscard]] bool LayoutMode() const noexcept { return layoutMode_; }

    [[nodiscard]] bool TreeShown() const noexcept { return treeShown_; }
    [[nodiscard]] bool ChartShown() const noexcept { return chartShown_; }
    [[nodiscard]] bool Zoomed() const noexcept { return zoomed_; }

    /// Takes over what GRID_ATTR says and lays all panes out.
    void Apply(bool treeShown, bool chartShown, bool zoomed);
    /// Shows or hides the tree pane by the control splitter.
    void ShowTree(bool shown);
    /// Lays the tree splitter out: the tree above the macro toolbar.
    void LayOutTreeSplitter() const;
    /// The control's new size in logical pixels.
    void Resize(int width, int height);

private:
    void LayOutControlSplitter() const;
    void LayOutGridSplitter() const;

    bool layoutMode_ = false;
    bool treeShown_ = false;
    bool chartShown_ = false;
    bool zoomed_ = false;
    int width_ = 0;
    int height_ = 0;
};

}  // namespace planview
