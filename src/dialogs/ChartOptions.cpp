// SPDX-License-Identifier: MIT
#include "dialogs/ChartOptions.h"

#include "automation/BusyScope.h"
#include "dialogs/frmChart.h"
#include "trace/ErrorTrap.h"

namespace planview {

using modPlan::TraceWrite;

namespace {

std::int16_t Ticked(bool flag) {
    return flag ? 1 : 0;
}

}  // namespace

void ChartOptions::Run() {
    if (open_) {
        return;
    }
    const BusyScope open(open_);
    ErrorTrap("CHART", "ChartOptions", [this] {
        TraceWrite("CHART", "{}", "#CHANGE CHART OPTIONS#", "BEGIN");
        bool changed = false;
        {
            frmChart form(parts_.forms, parts_.messageBoxes, parts_.chooseColor);
            const LoadedForm loaded(parts_.forms, form);
            Fill(form);
            const std::optional<ChartType> type = form.Get_Type();
            parts_.forms.ShowModal(form);
            changed = form.ButtonPressed == "OK";
            if (changed) {
                Keep(form);
                if (const std::optional<ChartType> chosen = form.Get_Type(); chosen && chosen != type) {
                    parts_.chooseType(*chosen);
                }
                WriteTable();
                parts_.rebuildChart();
                TraceWrite("CHART", "{changed}", "ChartOptions", "");
            }
        }
        if (changed) {
            parts_.hostUpdate.StartUpdate();
        }
    });
}

void ChartOptions::Fill(frmChart& form) const {
    const GridSettings& grid = parts_.gridSettings;
    const ChartSettings& chart = parts_.chartSettings;
    form.Set_Text();
    form.Set_Type(parts_.commonType());
    form.Set_Format(parts_.valueFormat());
    form.txtTitle = grid.titleText;
    form.Set_Font(chart.fontName);
    form.chkMinAuto.Value = Ticked(grid.autoMinimum);
    form.txtMin.Set(grid.minimum);
    form.chkMaxAuto.Value = Ticked(grid.autoMaximum);
    form.txtMax.Set(grid.maximum);
    form.chkLabelY.Value = Ticked(chart.valueLabels);
    form.txtMinRange.SetOrEmpty(grid.rangeMinimum);
    form.txtMaxRange.SetOrEmpty(grid.rangeMaximum);
    form.txtOptimum.SetOrEmpty(grid.optimum);
    form.chkLabelX.Value = Ticked(chart.categoryLabels);
    form.ListOrientation.ListIndex = static_cast<int>(chart.categoryOrientation);
    form.chkScrollBar.Value = Ticked(chart.scrollBar);
    form.txtCategories.Set(chart.visibleCategories);
    form.chkLegend.Value = Ticked(chart.legendShown);
    form.ListPosition.ListIndex = static_cast<int>(chart.legendPosition);
    form.picArea.Set(chart.areaColor);
    form.picPlot.Set(chart.plotColor);
    form.picLegend.Set(chart.legendColor);
    form.chkSelection.Value = Ticked(chart.selectionAllowed);
    form.chkChange.Value = Ticked(chart.valueChangeAllowed);
}

void ChartOptions::Keep(const frmChart& form) {
    GridSettings& grid = parts_.gridSettings;
    ChartSettings& chart = parts_.chartSettings;
    grid.titleText = form.txtTitle;
    chart.fontName = form.Get_Font();
    grid.autoMinimum = form.chkMinAuto.Value == 1;
    grid.minimum = form.txtMin.Value().value_or(0);
    grid.autoMaximum = form.chkMaxAuto.Value == 1;
    grid.maximum = form.txtMax.Value().value_or(0);
    chart.valueLabels = form.chkLabelY.Value == 1;
    grid.rangeMinimum = form.txtMinRange.Value().value_or(0);
    grid.rangeMaximum = form.txtMaxRange.Value().value_or(0);
    grid.optimum = form.txtOptimum.Value().value_or(0);
    chart.categoryLabels = form.chkLabelX.Value == 1;
    chart.categoryOrientation = static_cast<LabelOrientation>(form.ListOrientation.ListIndex);
    chart.scrollBar = form.chkScrollBar.Value == 1;
    chart.visibleCategories = form.Get_Categories();
    chart.legendShown = form.chkLegend.Value == 1;
    chart.legendPosition = static_cast<LegendPosition>(form.ListPosition.ListIndex);
    chart.areaColor = form.picArea.Get();
    chart.plotColor = form.picPlot.Get();
    chart.legendColor = form.picLegend.Get();
    chart.selectionAllowed = form.chkSelection.Value == 1;
    chart.valueChangeAllowed = form.chkChange.Value == 1;
}

void ChartOptions::WriteTable() const {
    constexpr HostTable::Row Row = 1;
    const GridSettings& settings = parts_.gridSettings;
    const HostTable gridAttr = parts_.tables.GRID_ATTR;
    if (!gridAttr.IsSet()) {
        return;
    }
    gridAttr.Put(Row, "CHART_TYPE", settings.chartType);
    // The table holds prohibitions where the dialog holds permissions.
    gridAttr.PutFlag(Row, "NO_AUTOMIN", !settings.autoMinimum);
    gridAttr.PutFlag(Row, "NO_AUTOMAX", !settings.autoMaximum);
    gridAttr.Put(Row, "MINVALUE", settings.minimum);
    gridAttr.Put(Row, "MAXVALUE", settings.maximum);
    gridAttr.Put(Row, "MINRANGE", settings.rangeMinimum);
    gridAttr.Put(Row, "MAXRANGE", settings.rangeMaximum);
    gridAttr.Put(Row, "OPTIMUM", settings.optimum);
    gridAttr.Put(Row, "TITELTEXT", settings.titleText);
}

}  // namespace planview
