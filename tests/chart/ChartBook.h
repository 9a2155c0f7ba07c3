// SPDX-License-Identifier: MIT
#pragma once

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview::test {

/// A control with three periods and four lines, its chart shown: lines 1 and 3 are marked, line 4 is a help line.
class ChartBook : public TracedTest {
protected:
    ChartBook() : control(platform.Interfaces()) {
        tables.gridAttr->SetValue(1, "CHART", "X");
        tables.AddColumn(1, "Jan");
        tables.AddColumn(2, "Feb");
        tables.AddColumn(3, "Mar");
        tables.AddLine(1, "Wages", {{"SHOW_CHART", "X"}});
        tables.AddLine(2, "Rent");
        tables.AddLine(3, "Sales", {{"SHOW_CHART", "X"}, {"CHART_TYPE", std::int16_t{23}}});
        tables.AddLine(4, "Help", {{"LINETYPE", "H"}});
        tables.AddValue(1, 1, 10.0);
        tables.AddValue(1, 2, "11,5");
        tables.AddValue(3, 1, 30.0);
        tables.AddValue(3, 3, -3.0);
        tables.GiveTo(control);
        control.DP_Import_Attribute();
        control.DP_Import_Create();
        ForgetEntries();
    }

    [[nodiscard]] GridControl& Grid() { return ControlParts(control).Grid(); }
    [[nodiscard]] ChartControl& ChartPart() { return ControlParts(control).Chart(); }
    [[nodiscard]] const ChartState& Chart() { return ChartPart().State(); }
    [[nodiscard]] Lines Captions() {
        Lines captions;
        for (const ChartSeries& series : Chart().series) {
            captions.push_back(series.caption);
        }
        return captions;
    }
    [[nodiscard]] static int ChartId(const TableRef& table, int row) { return table->Value(row, "CHART_ID").AsInt32(); }
    [[nodiscard]] static std::string Mark(const TableRef& table, int row) {
        return table->Value(row, "SHOW_CHART").AsText();
    }
    void SelectRow(const char* key) { Grid().SelectRow(*Grid().FindRow(key), SelectionMode::Replace); }

    Tables tables;
    PlanView control;
};

}  // namespace planview::test
