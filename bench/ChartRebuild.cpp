// SPDX-License-Identifier: MIT
// From the tables and the grid to a filled chart, without the screen.

#include <benchmark/benchmark.h>

#include <planview/PlanView.h>

#include "BenchTables.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "support/ScriptedPlatform.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;
constexpr int Lines = 20;

void RebuildChart(benchmark::State& state) {
    const test::Tables tables = MakeTables(Plan(Side));
    tables.gridAttr->SetValue(1, "CHART", "X");
    for (int line = 1; line <= Lines; ++line) {
        tables.lineIndex->SetValue(line * (Side / Lines), "SHOW_CHART", "X");
    }
    test::ScriptedPlatform platform;
    PlanView control(platform.Interfaces());
    tables.GiveTo(control);
    control.DP_Import_Attribute();
    control.DP_Import_Create();
    for ([[maybe_unused]] auto _ : state) {
        control.plv_MarkedRowsShow();  // no row is marked: nothing but the chart is done anew
    }
    const ChartState& chart = ControlParts(control).Chart().State();
    if (chart.SeriesCount() != Lines || chart.CategoryCount() != Side) {
        state.SkipWithError("the chart is not the one to be measured");
    }
}

BENCHMARK(RebuildChart)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace planview::bench
