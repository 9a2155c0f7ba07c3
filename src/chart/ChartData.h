// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Platform.h>

#include "automation/TableSlots.h"
#include "chart/ChartTexts.h"
#include "chart/modChart.h"
#include "components/GridControl.h"
#include "components/chart/ChartControl.h"
#include "grid/ChartSettings.h"
#include "grid/GridSettings.h"

namespace planview {

/// What the chart is filled from.
struct ChartDataParts {
    ChartControl& chart;
    const GridControl& grid;
    const TableSlots& tables;
    const GridSettings& gridSettings;
    const ChartSettings& chartSettings;
    MessageBoxes& messageBoxes;
};

/// Sets the chart up and fills it: the columns of COLS_INDEX and the lines of LINE_INDEX that carry a mark in
/// `SHOW_CHART` become categories and series, with the values that the grid shows. `CHART_ID` of both tables says which
/// number a row has in the chart; 0 means that it is not in it.
class ChartData {
public:
    explicit ChartData(const ChartDataParts& parts) : parts_(parts) {}

    /// "#INITIALIZE#": every setting of the chart, in a fixed order.
    void Initialize() const;
    /// "#UPDATE#": rebuilds the chart from the tables and the grid.
    void Update();

    /// The keys of the line that a series shows and of the column that a category shows, both counted from 1, as the
    /// chart was filled last. Empty for a number that the chart does not have, and for every number while what is
    /// drawn is not whole. Valid until the chart is filled again.
    [[nodiscard]] std::string_view LineOf(int series) const noexcept;
    [[nodiscard]] std::string_view ColumnOf(int category) const noexcept;

private:
    /// One line of LINE_INDEX, as the values of a category are being filled.
    struct Line {
        std::string key;
        std::string caption;
        std::optional<RowId> gridRow;
    };
    /// The keys of what the chart shows, in the order of its numbers.
    struct ShownKeys {
        std::vector<std::string> lines;
        std::vector<std::string> columns;
    };

    void UpdateNormalView();
    void UpdateForecastView();
    void LeaveEmpty(ChartText why, const char* caption);
    void ForgetNumbers();
    void Fill();
    void FillForecast(HostTable::Row sales, HostTable::Row forecast);
    /// `isLine` says which lines are series.
    template <class IsLine>
    void FillSheet(const IsLine& isLine);
    template <class IsLine>
    [[nodiscard]] std::vector<Line> NumberLines(const IsLine& isLine) const;
    void FillCategory(modChart::DataSheet& dataSheet, std::int16_t category, std::string_view columnKey,
                      const std::vector<Line>& lines) const;
    template <class IsLine>
    void ApplyLineTypes(const IsLine& isLine) const;
    void ApplyVisibleCategories(std::int16_t columns) const;
    void ApplyTitle() const;
    void ApplyColors() const;
    [[nodiscard]] bool IsInChart(HostTable::Row line) const;
    [[nodiscard]] const ObjectRef& Chart() const noexcept { return parts_.chart.Object(); }

    ChartDataParts parts_;
    /// Empty until a fill has ended.
    ShownKeys shown_;
    /// What the forecast view was last said to lack.
    std::optional<ChartText> told_;
};

}  // namespace planview
