// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <planview/Export.h>

#include "components/chart/ChartTypes.h"

namespace planview {

/// How an area is filled. A palette index of -1 leaves the view's own colour.
struct ChartInterior {
    std::int16_t pattern = 0;
    std::int16_t colorIndex = -1;
};

struct ChartFont {
    std::string name;       ///< empty: the view's own
    std::int16_t size = 0;  ///< points, 0: the view's own
};

struct ChartTrend {
    TrendKind kind = TrendKind::Linear;
    std::string name;
    std::int16_t borderColorIndex = -1;  ///< -1: the colour of its series
    std::int16_t period = 2;             ///< of a moving average, at least 2
};

/// What a series keeps through every rebuild of the chart, for as long as it is known by the same key.
struct ChartSeriesLook {
    /// One of SeriesStyles from 0: the colour that the series gets, its marker and its dashes.
    int style = 0;
    /// That of its style, or one that the host has chosen.
    ChartColor color;
    std::int16_t gradient = 1;  ///< 1: none
    ChartInterior interior;
    std::vector<std::shared_ptr<ChartTrend>> trends;
};

struct ChartSeries {
    /// What the series shows, in the words of whoever fills the chart; empty where nobody said.
    std::string key;
    std::string caption;
    /// Number code of its values, as in `ROW_FORMAT`; empty: values are shown as they are.
    std::string format;
    ChartType type = ChartType::Column;
    std::vector<double> values;  ///< one for each category
    std::shared_ptr<ChartSeriesLook> look = std::make_shared<ChartSeriesLook>();
};

/// One of the three limits of a value range: type 1 is not shown, 2 is shown at the value.
struct ChartLimit {
    static constexpr std::int16_t Hidden = 1;
    static constexpr std::int16_t Shown = 2;
    std::int16_t type = Hidden;
    double value = 0;
    [[nodiscard]] bool IsShown() const noexcept { return type == Shown; }
};

struct ChartValueAxis {
    double minimum = 0;
    double maximum = 0;
    bool minimumIsAuto = true;
    bool maximumIsAuto = true;
    bool visible = true;
    LabelOrientation orientation = LabelOrientation::Automatic;
    ChartLimit rangeMinimum;
    ChartLimit rangeMaximum;
    ChartLimit optimum;
};

struct ChartCategoryAxis {
    bool visible = true;
    LabelOrientation orientation = LabelOrientation::Automatic;
    /// The chart scrolls where fewer categories are visible than it has.
    bool scrollBar = false;
    std::int16_t visibleCategories = 0;  ///< 0: all
    std::int16_t startAtCategory = 1;    ///< the first visible one
};

struct ChartLegend {
    bool shown = true;
    LegendPosition position = LegendPosition::Right;
    ChartFont font;
    ChartInterior interior;
    std::int16_t borderColorIndex = -1;
};

/// All of a chart: what the object model reads and writes and what a painter draws.
struct PLANVIEW_EXPORT ChartState {
    ChartType type = ChartType::Column;
    bool allowContextMenus = false;
    bool allowDialogs = false;
    bool allowSelect = true;
    bool allowValueChange = true;
    /// The first two series are set against each other and their difference is shown: this one (1 or 2) is what the
    /// other is measured by. 0: no comparison.
    int comparisonBase = 0;
    [[nodiscard]] bool IsComparison() const noexcept { return comparisonBase != 0; }
    /// The keys of the two lines that are chosen for a comparison, be it drawn or not yet; empty: none chosen.
    std::string salesKey;
    std::string forecastKey;

    /// What the user is to do so that an empty chart shows something; empty: the view says it in its own words.
    std::string guidance;

    std::string title;
    ChartFont titleFont;
    ChartLegend legend;
    ChartInterior chartArea;
    ChartInterior plotArea;
    ChartValueAxis valueAxis;
    ChartCategoryAxis categoryAxis;

    std::vector<std::string> categories;
    std::vector<ChartSeries> series;
    ChartHit selected;

    [[nodiscard]] int CategoryCount() const noexcept { return static_cast<int>(categories.size()); }
    [[nodiscard]] int SeriesCount() const noexcept { return static_cast<int>(series.size()); }
    /// The number code of all series on the axis of values; empty where they have different ones or none.
    [[nodiscard]] std::string ValueFormat() const;
    /// The visible window of categories: the first one, from 1, and how many, at least 1 where there are any.
    [[nodiscard]] int FirstVisible() const noexcept;
    [[nodiscard]] int VisibleCount() const noexcept;
};

}  // namespace planview
