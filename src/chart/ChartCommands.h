// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <planview/Platform.h>

#include "automation/TableSlots.h"
#include "chart/ChartData.h"
#include "components/chart/ChartControl.h"
#include "grid/ChartSettings.h"
#include "grid/ColorQuestion.h"
#include "grid/GridSettings.h"
#include "grid/HostUpdate.h"
#include "grid/modGrid.h"

namespace planview {

/// What the chart's commands work on.
struct ChartCommandParts {
    ChartControl& chart;
    modGrid& driver;
    const TableSlots& tables;
    GridSettings& gridSettings;
    ChartSettings& chartSettings;
    ChartData& chartData;
    HostUpdate& hostUpdate;
    MessageBoxes& messageBoxes;
    /// Lays the panes out as the settings say.
    std::function<void()> layOutPanes;
    /// Shows the colour palette and answers the position of the chosen colour in it, 0 .. 15; none when it was closed.
    ColorChooser chooseColor;
};

/// What the user can do with the chart by menu. Commands that write the host's tables end by telling the host.
class ChartCommands {
public:
    explicit ChartCommands(ChartCommandParts parts) : parts_(std::move(parts)) {}

    /// Brings the chart up to date where it is shown.
    void ChartStep();
    /// Shows or hides the chart pane.
    void SwitchDisplay();

    /// Gives the selected lines this type in the chart.
    void SerieType(ChartType type);
    /// Gives the whole chart this type: the stacked columns by themselves, every other type through the lines that are
    /// in the chart.
    void ChooseType(ChartType type);
    /// The type that all series of the chart have; none for a mix or an empty chart.
    [[nodiscard]] std::optional<ChartType> CommonType() const;
    /// Sets the chart up and fills it, where it is shown.
    void Rebuild();
    /// Puts exactly the selected columns (lines) into the chart; nothing without the table.
    void ColsShowInChart();
    void RowsShowInChart();

    /// All marked lines against the periods. What was in the chart before the forecast view is again.
    void StandardView();
    /// The sales line against the forecast line: those that the tables mark, else those that were compared last.
    void ForecastView();
    [[nodiscard]] bool IsForecastView() const noexcept {
        return parts_.chartSettings.viewMode == ChartViewMode::Forecast;
    }

    void AutoArrange() const;
    /// The picture of the chart as it is on screen.
    void CopyToClipboard() const;

    /// Says so when the values of the line do not allow that kind.
    void TrendlineAdd(TrendKind kind);
    void TrendlineColor();
    void TrendlineDelete();
    [[nodiscard]] bool HasTrendline() const noexcept { return currentTrendline_ != nullptr; }
    /// The trend line that the commands mean; null for none.
    void SetCurrentTrendline(ObjectRef trendline) noexcept { currentTrendline_ = std::move(trendline); }

private:
    void ShowInChart(const HostTable& table, bool columns);
    void LeaveForecastView();
    void TellTrendLimit() const;

    ChartCommandParts parts_;
    /// The palette index of the current trend line's colour; none where it has another.
    [[nodiscard]] std::optional<std::int16_t> PresentTrendColor() const;

    ObjectRef currentTrendline_;
    /// What was in the chart when the forecast view began, by key, and what was compared when it was left.
    struct ForecastMemory {
        std::vector<std::string> lines;
        std::vector<std::string> columns;
        std::string sales;
        std::string forecast;
    };
    ForecastMemory memory_;
};

}  // namespace planview
