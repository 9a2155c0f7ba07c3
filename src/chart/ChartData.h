// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <planview/Platform.h>

#include "automation/TableSlots.h"
#include "chart/ChartTexts.h"
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

private:
    /// One line of LINE_INDEX, as a column's values are being filled.
    struct Line {
        HostTable::Row row = 0;
        std::int16_t series = 0;
        std::string key;
        std::string caption;
        std::optional<RowId> gridRow;
    };

    void UpdateNormalView() const;
    void UpdateForecastView();
    void LeaveEmpty(ChartText why, const char* caption);
    void ForgetNumbers() const;
    void Fill() const;
    void FillForecast(HostTable::Row sales, HostTable::Row forecast) const;
    /// `isLine` says which lines are series.
    template <class IsLine>
    void FillSheet(const IsLine& isLine) const;
    template <class IsLine>
    [[nodiscard]] std::vector<Line> NumberLines(const IsLine& isLine) const;
    void FillColumn(std::int16_t category, std::string_view columnKey, const std::vector<Line>& lines) const;
    template <class IsLine>
    void ApplyLineTypes(const IsLine& isLine) const;
    void ApplyVisibleCategories(std::int16_t columns) const;
    void ApplyTitle() const;
    void ApplyColors() const;
    [[nodiscard]] bool IsInChart(HostTable::Row line) const;
    [[nodiscard]] const ObjectRef& Chart() const noexcept { return parts_.chart.Object(); }

    ChartDataParts parts_;
    /// What the forecast view was last said to lack.
    std::optional<ChartText> told_;
};

}  // namespace planview
