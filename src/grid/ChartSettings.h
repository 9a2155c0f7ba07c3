// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "components/chart/ChartTypes.h"
#include "grid/GridSettings.h"

namespace planview {

enum class ChartViewMode : std::int16_t { Normal = 0, Forecast = 1 };

/// How the chart is shown, beside what GRID_ATTR says of it (GridSettings). Kept for the life of the control.
struct ChartSettings {
    ChartViewMode viewMode = ChartViewMode::Normal;
    /// The chart control's own menus and dialogs; the control brings its own instead.
    bool ownMenusAndDialogs = false;
    bool selectionAllowed = true;
    bool valueChangeAllowed = true;
    std::string fontName;  ///< of title and legend; empty: the view's own
    bool legendShown = true;
    LegendPosition legendPosition = LegendPosition::Right;
    LabelOrientation categoryOrientation = LabelOrientation::Automatic;
    bool categoryLabels = true;
    bool valueLabels = true;
    // Palette indices; 0 is the view's own ground.
    std::int16_t areaColor = 0;
    std::int16_t plotColor = 0;
    std::int16_t legendColor = 0;
    bool scrollBar = false;
    std::int16_t visibleCategories = 24;
    bool stacked = false;       ///< all series as stacked columns
    bool stacked100 = false;    ///< all series as stacked 100 % columns; wins over `stacked`
    std::int16_t dataRows = 1;  ///< series stand in the data sheet's columns
};

/// The two stacked views follow the chart type that GRID_ATTR gives.
inline void FollowChartType(const GridSettings& grid, ChartSettings& chart) noexcept {
    chart.stacked = grid.chartType == static_cast<std::int16_t>(ChartType::StackedColumn);
    chart.stacked100 = grid.chartType == static_cast<std::int16_t>(ChartType::StackedColumn100);
}

}  // namespace planview
