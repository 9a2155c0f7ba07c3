// SPDX-License-Identifier: MIT
// From the tables and the grid to a filled chart, without the screen, beside a plain loop that reads the same.

#include <charconv>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <planview/PlanView.h>

#include "BenchTables.h"
#include "automation/HostTable.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "support/ScriptedPlatform.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;
constexpr int Lines = 20;

test::Tables MarkedTables() {
    test::Tables tables = MakeTables(Plan(Side));
    tables.gridAttr->SetValue(1, "CHART", "X");
    for (int line = 1; line <= Lines; ++line) {
        tables.lineIndex->SetValue(line * (Side / Lines), "SHOW_CHART", "X");
    }
    return tables;
}

void RebuildChart(benchmark::State& state) {
    const test::Tables tables = MarkedTables();
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

/// The marks, the captions and the numbers of the shown texts, into vectors.
void PlainRebuildChart(benchmark::State& state) {
    const test::Tables tables = MarkedTables();
    for (int column = 1; column <= Side; ++column) {
        tables.colsIndex->SetValue(column, "SHOW_CHART", "X");
    }
    const Plan plan(Side);
    std::vector<std::string> texts;
    for (int row = 1; row <= Side; ++row) {
        for (int column = 1; column <= Side; ++column) {
            texts.push_back(plan.ValueText(row, column));
        }
    }
    const HostTable columns(tables.colsIndex);
    const HostTable lines(tables.lineIndex);
    double last = 0;
    for ([[maybe_unused]] auto _ : state) {
        std::vector<std::string> captions;
        std::vector<std::vector<double>> series;
        HostTable::Row chartColumn = 0;
        for (HostTable::Row column = 1; column <= Side; ++column) {
            if (!columns.Flag(column, "SHOW_CHART") || columns.Flag(column, "COL_HIDDEN")) {
                continue;
            }
            columns.Put(column, "CHART_ID", ++chartColumn);
            captions.push_back(columns.Text(column, "PERDY"));
            std::vector<double>& values = series.emplace_back();
            for (HostTable::Row line = 1; line <= Side; ++line) {
                if (!lines.Flag(line, "SHOW_CHART") || lines.Flag(line, "ROW_HIDDEN")) {
                    continue;
                }
                std::string text = texts[static_cast<std::size_t>((line - 1) * Side + column - 1)];
                text[text.find(',')] = '.';
                std::from_chars(text.data(), text.data() + text.size(), values.emplace_back());
            }
        }
        last = series.back().back();
        benchmark::DoNotOptimize(captions);
    }
    if (last != plan.Value(Lines * (Side / Lines), Side)) {
        state.SkipWithError("the numbers are not those of the plan");
    }
}

BENCHMARK(PlainRebuildChart)->Unit(benchmark::kMillisecond);
BENCHMARK(RebuildChart)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace planview::bench
