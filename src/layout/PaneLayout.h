// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <planview/Export.h>

#include "grid/GridSettings.h"

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

/// Where the user wants to go on with the keyboard.
enum class PaneGoal : std::uint8_t { Next, Previous, NextSplitter };

/// Hears that panes came, went, or got other sizes.
class PaneWatcher {
public:
    virtual ~PaneWatcher() = default;
    virtual void PanesChanged() = 0;
    /// The keyboard is to go there.
    virtual void PaneWanted(PaneGoal /*goal*/) {}
};

/// Where the control's splitters stand, and which panes are on screen by the settings, which it only reads: whoever
/// changes what is shown calls LayOut(). The window follows through a watcher and reports what the user does to a
/// splitter. Positions are per mille of the extent that the splitter divides, measured from the left or top, so that
/// they keep their meaning when the control is resized.
class PLANVIEW_EXPORT PaneLayout {
public:
    /// No pane is made smaller than this share by a splitter.
    static constexpr int LeastShare = 50;
    static constexpr int WholeExtent = 1000;

    explicit PaneLayout(const GridSettings& settings) noexcept : settings_(settings) {}

    void SetWatcher(PaneWatcher* watcher) noexcept { watcher_ = watcher; }

    /// Zooming leaves the grid pane alone on screen.
    [[nodiscard]] bool TreePaneVisible() const noexcept { return settings_.treeShown && !settings_.zoomed; }
    [[nodiscard]] bool ChartPaneVisible() const noexcept { return settings_.chartShown && !settings_.zoomed; }
    [[nodiscard]] int Position(Splitter splitter) const noexcept {
        return positions_[static_cast<std::size_t>(splitter)];
    }

    /// Lays tree, grid and chart out as the settings say now.
    void LayOut() const;
    /// Lays out the two panes of one splitter.
    void LayOut(Splitter splitter) const;
    void GoTo(PaneGoal goal) const;
    /// The user moved a splitter. Positions that would leave a pane too small are corrected.
    void MoveSplitter(Splitter splitter, int position);
    /// All of them at once, as they stood before; corrected likewise.
    void MoveSplitters(const std::array<int, SplitterCount>& positions);
    /// The control's new size in logical pixels.
    void Resize(int width, int height);

private:
    void TraceLayout(Splitter splitter) const;
    void Changed() const;

    const GridSettings& settings_;
    PaneWatcher* watcher_ = nullptr;
    std::array<int, SplitterCount> positions_{280, 600, 360, 500};
    int width_ = 0;
    int height_ = 0;
};

}  // namespace planview
