// SPDX-License-Identifier: MIT
#include "Ratios.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <limits>
#include <ostream>
#include <string_view>

namespace planview::bench {

namespace {

/// One line of the table: a subject is held against its peer.
struct Comparison {
    std::string_view work;
    std::string_view peerName;
    std::string_view subject;
    std::string_view peer;
    double bar;
    double hope;
};

constexpr Comparison Comparisons[] = {
    {"`DP_Import_Create`, 181 × 181 cells with texts and colours", "`QTableWidget` filled with the same", "Create/181",
     "PeerCreate/181", 1.0, 0.4},
    {"the same with the trace on", "trace off", "CreateTraced/181", "Create/181", 4.0, 2.0},
    {"memory of the built grid", "`QTableWidget`'s", "HeapGrowth/grid", "HeapGrowth/peer", 0.5, 0.25},
    {"full repaint of 1280 × 800, fixed columns and rows on all sides", "`QTableView`, no fixed sides", "Repaint",
     "PeerRepaint", 1.0, 0.5},
    {"one scroll step of it", "the same", "ScrollStep", "PeerScrollStep", 1.5, 1.0},
    {"paste of 10,000 cells into a TAB of 32,767 rows", "`QTableWidget::setItem` for each", "PasteBlock",
     "PeerPasteBlock", 1.0, 0.3},
    {"hide 1,000 of 5,000 rows", "`QTableView::hideRow` one by one", "HideRows", "PeerHideRows", 0.5, 0.1},
    {"chart of 20 lines × 180 categories filled anew and painted, 1200 × 600", "QCustomPlot", "ChartLines",
     "PeerChartLines", 1.0, 0.5},
    {"the same, 20 stacked columns", "QCustomPlot", "ChartColumns", "PeerChartColumns", 1.0, 0.5},
    {"workbook of 181 × 181 made late-bound and saved", "libxlsxwriter with the same cells and formats",
     "WriteWorkbook", "PeerWriteWorkbook", 1.5, 1.1},
    {"memory for it at most", "the same", "PeakGrowth/workbook", "PeakGrowth/peer", 2.0, 1.2},
    {"download of the grid, 181 × 181", "libxlsxwriter with the same cells and formats", "Download",
     "PeerWriteWorkbook", 1.5, 1.1},
    {"memory for it at most", "the same", "PeakGrowth/download", "PeakGrowth/peer", 2.0, 1.2},
    {"upload of it, until the preview", "libzip and expat, nothing kept", "Upload", "PeerReadWorkbook", 1.5, 1.1},
    {"the same opened and each value asked for", "libzip and expat, nothing kept", "ReadWorkbook", "PeerReadWorkbook",
     1.5, 1.1},
    {"macro tree of 10,000 nodes, read from the table and painted", "`QTreeWidget` filled with the same", "BuildTree",
     "PeerBuildTree", 1.0, 0.5},
    {"one edit in a TAB of 32,767 rows, the last row", "a walk through TAB for the row", "EditLastCell",
     "PlainEditLastCell", 2.0, 0.5},
    {"key press to painted cell, 181 × 181", "`QTableWidget`", "TypeAndPaint", "PeerTypeAndPaint", 1.0, 0.5},
    {"rebuild of a chart of 181 columns × 20 of 181 rows", "a loop that reads and converts the same", "RebuildChart",
     "PlainRebuildChart", 1.0, 0.5},
    {"select all of 181 × 181 and add it up", "`QTableWidget` and a loop over its texts", "SelectAll/181",
     "PeerSelectAll/181", 1.0, 0.5},
    {"the same of 5,000 × 181", "the same", "SelectAll/5000", "PeerSelectAll/5000", 1.0, 0.5},
    {"a macro of ten statements over 181 × 181 cells", "the same arithmetic on a vector, written to the same tables",
     "RunMacro", "PlainRunMacro", 5.0, 1.5},
    {"100 totals of 1,000 × 1,000 numbers", "a plain loop over the same matrix", "RecomputeTotals", "PlainTotals", 10.0,
     3.0},
    {"the same where cells may be empty", "the same", "RecomputeTotals/cells", "PlainTotals", 10.0, 3.0},
    {"a frame while a point of 20 lines × 180 is dragged", "QCustomPlot", "ChartDragFrame", "PeerChartDragFrame", 1.0,
     0.5},
    {"the same, a column of 20 stacked ones", "QCustomPlot", "ChartDragColumn", "PeerChartDragColumn", 1.0, 0.5},
    {"the same, a point with a trend line", "QCustomPlot and the least squares of its points", "ChartDragTrend",
     "PeerChartDragTrend", 1.0, 0.5},
};

constexpr std::array<const char*, 3> FlatSubjects{"Create/20", "Create/60", "Create/181"};
constexpr double FlatBar = 1.5;

void WriteLine(std::ostream& out, std::string_view work, std::string_view peer, double ratio, double bar, double hope) {
    std::array<char, 64> figures;
    std::snprintf(figures.data(), figures.size(), " | %.2f × | %.1f × | ", ratio, bar);
    out << "| " << work << " | " << peer << figures.data();
    if (hope > 0) {
        std::snprintf(figures.data(), figures.size(), "%.3g ×", hope);
        out << figures.data();
    }
    out << " | "
        << (ratio > bar                ? "**missed**"
            : hope > 0 && ratio > hope ? "bar"
            : hope > 0                 ? "hope"
                                       : "bar")
        << " |\n";
}

/// The name without what the library appends ("/iterations:1", "/repeats:9").
std::string PlainName(const benchmark::BenchmarkReporter::Run& run) {
    std::string name = run.run_name.function_name;
    if (!run.run_name.args.empty()) {
        name += '/' + run.run_name.args;
    }
    return name;
}

}  // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) {
            continue;
        }
        const auto iterations = static_cast<double>(run.iterations);
        const double seconds = run.cpu_accumulated_time / iterations;
        const auto bytes = run.counters.find("bytes");
        const auto rate = run.counters.find("items_per_second");
        samples_[PlainName(run)].push_back({bytes != run.counters.end() ? bytes->second.value : seconds,
                                            rate != run.counters.end() ? rate->second.value * seconds : 1});
    }
    std::vector<Run> shown;
    std::copy_if(runs.begin(), runs.end(), std::back_inserter(shown), [](const Run& run) {
        return run.aggregate_name == "median" || (run.run_type == Run::RT_Iteration && run.repetitions == 1);
    });
    if (!shown.empty()) {
        ConsoleReporter::ReportRuns(shown);
    }
}

double RatioReporter::Median(const std::string& benchmark, bool perItem) const {
    const auto found = samples_.find(benchmark);
    if (found == samples_.end()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    std::vector<double> values;
    for (const Sample& sample : found->second) {
        values.push_back(perItem ? sample.amount / sample.items : sample.amount);
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

bool RatioReporter::WriteRatios(std::ostream& out) const {
    bool kept = true;
    out << "\n| Work | Against | Measured | Bar | Hope | Reached |\n|---|---|---|---|---|---|\n";
    for (const Comparison& line : Comparisons) {
        const double ratio = Median(std::string(line.subject)) / Median(std::string(line.peer));
        if (!std::isnan(ratio)) {
            WriteLine(out, line.work, line.peerName, ratio, line.bar, line.hope);
            kept = kept && ratio <= line.bar;
        }
    }
    std::array<double, FlatSubjects.size()> perCell{};
    std::transform(FlatSubjects.begin(), FlatSubjects.end(), perCell.begin(),
                   [&](const char* subject) { return Median(subject, true); });
    if (std::none_of(perCell.begin(), perCell.end(), [](double cost) { return std::isnan(cost); })) {
        const auto [least, most] = std::minmax_element(perCell.begin(), perCell.end());
        WriteLine(out, "cost per cell at 20 × 20, 60 × 60, 181 × 181", "the cheapest of them", *most / *least, FlatBar,
                  0);
        kept = kept && *most / *least <= FlatBar;
    }
    return kept;
}

}  // namespace planview::bench
