// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

#include "grid/GridSettings.h"
#include "grid/Loaders.h"

namespace planview {

/// Builds the grid from the host's tables.
class GridConstruction {
public:
    /// `built`: what belongs to a build once everything is loaded, before it is drawn.
    GridConstruction(const LoaderContext& context, GridSettings& settings, std::function<void()> built)
        : context_(context), settings_(settings), built_(std::move(built)) {}

    /// Ends the grid that is there and builds an empty one with the label column, the palette and the settings.
    void CreateEmpty();
    /// The whole way from the tables to a grid on screen; it is drawn once, at the end. The scroll position, the
    /// current cell and the selection stay where their columns and rows are still there; the headings that the tables
    /// mark are selected. The scroll positions of the settings are used up by it. Throws Failed when a table, while it
    /// is read, leads to another build.
    void CreateFromTables();
    /// What became of each table in the last build, in the order in which they were read.
    [[nodiscard]] const std::vector<TableReport>& Report() const noexcept { return report_; }

private:
    void RunLoaders();
    void ArrangeTracks() const;
    void SelectMarked() const;
    void ScrollToFirst();

    LoaderContext context_;
    bool building_ = false;
    std::vector<TableReport> report_;
    GridSettings& settings_;
    std::function<void()> built_;
};

}  // namespace planview
