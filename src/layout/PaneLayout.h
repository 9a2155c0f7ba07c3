// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <planview/Export.h>

namespace planview {

/// The control's four splitters. Each stands between two panes; a splitter is there while both are.
enum class Splitter : std::uint8_t {
    CtrlSplit,  ///< the tree pane beside grid and chart
    GridSplit,  ///< the grid above the chart
    TreeSplit,  ///< the macro tree above the macro editor
    MacroSplit  ///< the macro editor's list beside its operands
};
inline constexpr std::size_t SplitterCount = 4;

/// The label that a splitter's trace entries carry ("CTRLSPLIT" ...).
[[nodiscard]] PLANVIEW_EXPORT std::string_view SplitterLabel(Splitter splitter) noexcept;

/// Hears that panes came, went, or got other sizes.
class PaneWatcher {
public:
    virtual ~PaneWatcher() = default;
    virtual void PanesChanged() = 0;
};

/// Which panes the control shows and where its splitters stand. The window follows it through a watcher and reports
/// what the user does to a splitter. Positions are per mille of the extent that the splitter divides, measured from the
/// left or top, so that they keep their meaning when the control is resized.
class PLANVIEW_EXPORT PaneLayout {
public:
    /// No pane is made smaller than this share by a splitter.
    static constexpr int LeastShare = 50;
    static constexpr int WholeExtent = 1000;

    void SetWatcher(PaneWatcher* watcher) noexcept { watcher_ = watcher; }

    /// While layout mode is off, GRID_ATTR and `plv_LayoutShow` cannot show the tree pane.
    void SetLayoutMode(bool on) noexcept { layoutMode_ = on; }
    [[nodiscard]] bool LayoutMode() const noexcept { return layoutMode_; }

    /// What is on screen: zooming leaves the grid pane alone there.
    [[nodiscard]] bool TreePaneVisible() const noexcept { return treeShown_ && !zoomed_; }
    [[nodiscard]] bool ChartPaneVisible() const noexcept { return chartShown_ && !zoomed_; }
    [[nodiscard]] bool TreeShown() const noexcept { return treeShown_; }
    [[nodiscard]] bool ChartShown() const noexcept { return chartShown_; }
    [[nodiscard]] bool Zoomed() const noexcept { return zoomed_; }
    [[nodiscard]] int Position(Splitter splitter) const noexcept {
        return positions_[static_cast<std::size_t>(splitter)];
    }

    /// Takes over what GRID_ATTR says and lays all panes out.
    void Apply(bool treeShown, bool chartShown, bool zoomed);
    /// Shows or hides the tree pane by the control splitter.
    void ShowTree(bool shown);
    void SetZoomed(bool zoomed);
    /// Lays the tree splitter out: the tree above the macro editor.
    void LayOutTreeSplitter() const;
    /// The user moved a splitter. Positions that would leave a pane too small are corrected.
    void MoveSplitter(Splitter splitter, int position);
    /// The control's new size in logical pixels.
    void Resize(int width, int height);

private:
    void LayOut(Splitter splitter) const;
    void Changed() const;

    PaneWatcher* watcher_ = nullptr;
    std::array<int, SplitterCount> positions_{280, 600, 360, 500};
    bool layoutMode_ = false;
    bool treeShown_ = false;
    bool chartShown_ = false;
    bool zoomed_ = false;
    int width_ = 0;
    int height_ = 0;
};

}  // namespace planview
