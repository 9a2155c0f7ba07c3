// SPDX-License-Identifier: MIT
#include <cmath>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "SampleChart.h"
#include "components/chart/ChartClip.h"
#include "components/chart/ChartPlot.h"

namespace planview {

void PrintTo(const ChartHit& hit, std::ostream* out) {
    *out << "{code " << static_cast<int>(hit.code) << ", series " << hit.series << ", category " << hit.category << "}";
}

namespace {

constexpr double Reach = 4;
constexpr auto Point = ChartHitCode::Point;

/// 300 wide and 200 high, with its corner away from zero.
constexpr ChartRect Area{10, 20, 300, 200};

void AddTrend(ChartState& state, int series, TrendKind kind, std::int16_t period = 2) {
    auto trend = std::make_shared<ChartTrend>();
    trend->kind = kind;
    trend->period = period;
    state.series[static_cast<std::size_t>(series - 1)].look->trends.push_back(trend);
}

ChartPoint Middle(const ChartRect& rect) {
    return {rect.x + rect.width / 2, rect.y + rect.height / 2};
}

std::string Show(const ChartRect& rect) {
    const auto text = [](double value) { return std::to_string(std::lround(value)); };
    return text(rect.x) + "," + text(rect.y) + " " + text(rect.width) + "x" + text(rect.height);
}

TEST(ChartPlotTest, ColumnsShareTheirCategory) {
    struct Row {
        const char* name;
        std::vector<SampleSeries> series;
        std::vector<const char*> columns;  // of the second category
    };
    constexpr auto plain = ChartType::Column;
    constexpr auto stacked = ChartType::StackedColumn;
    constexpr auto stacked100 = ChartType::StackedColumn100;
    // Three categories of 100 each, of which columns take 67 in the middle; the axis goes from 0 to 100.
    const std::vector<Row> rows = {
        {"one", {{plain, {0, 50, 100}}}, {"127,120 67x100"}},
        {"two and a line",
         {{plain, {0, 50, 100}}, {ChartType::Line, {1, 2, 3}}, {plain, {0, 25, 0}}},
         {"127,120 33x100", "0,0 0x0", "160,170 33x50"}},
        {"stacks have one place",
         {{stacked, {0, 50, 40}}, {stacked, {0, 25, 60}}, {plain, {0, 100, 0}}},
         {"127,120 33x100", "127,70 33x50", "160,20 33x200"}},
        {"each kind of stack has its own",
         {{stacked, {0, 50, 100}}, {stacked100, {0, 9, 1}}, {stacked100, {0, 3, 1}}},
         {"127,120 33x100", "160,70 33x150", "160,20 33x50"}},
        {"zero lies on the axis", {{plain, {0, 0, 100}}}, {"127,220 67x0"}},
        {"negative hangs from the axis", {{plain, {-100, -50, 0}}}, {"127,20 67x100"}},
    };
    for (const Row& row : rows) {
        const ChartState state = SampleChart(row.series);
        const ChartPlot plot(state, Area, 10);
        for (int series = 1; series <= state.SeriesCount(); ++series) {
            EXPECT_EQ(Show(plot.Column(series, 2)), row.columns[static_cast<std::size_t>(series - 1)])
                << row.name << ", series " << series;
        }
    }
}

TEST(ChartPlotTest, ShowsTheVisibleCategoriesAlone) {
    ChartState state = SampleChart({{ChartType::Column, {9000, 4000, 8000, 2000, 9000}}});
    state.categoryAxis.visibleCategories = 3;
    state.categoryAxis.startAtCategory = 2;
    const ChartPlot plot(state, Area, 8);
    EXPECT_EQ(std::pair(plot.FirstCategory(), plot.LastCategory()), std::pair(2, 4));
    EXPECT_EQ(plot.Values().maximum, 10000) << "what is scrolled away counts, too: the axis stays where it is";
    EXPECT_EQ(plot.CategoryCenter(2), 60);
    EXPECT_EQ(plot.CategoryCenter(4), 260);
    EXPECT_EQ(plot.HitTest({60, 200}, Reach), (ChartHit{Point, 1, 2}));
    EXPECT_EQ(plot.HitTest({260, 210}, Reach), (ChartHit{Point, 1, 4}));
    EXPECT_EQ(plot.HitTest({9, 210}, Reach).series, 0) << "the column scrolled out to the left";
    EXPECT_EQ(plot.HitTest({312, 210}, Reach).series, 0) << "the one to the right";
}

TEST(ChartPlotTest, FixedEndsCutColumnsOff) {
    ChartState state = SampleChart({{ChartType::Column, {5, 15, 50, -50}}});
    state.valueAxis.minimumIsAuto = state.valueAxis.maximumIsAuto = false;
    state.valueAxis.minimum = 10;
    state.valueAxis.maximum = 20;
    const ChartPlot plot(state, Area, 5);
    EXPECT_EQ(plot.Column(1, 1).height, 0) << "below the axis";
    EXPECT_EQ(Show(plot.Column(1, 2)), "98,120 50x100");
    EXPECT_EQ(Show(plot.Column(1, 3)), "173,20 50x200") << "beyond the upper end";
    EXPECT_EQ(plot.Column(1, 4).height, 0);
    EXPECT_EQ(plot.HitTest({260, 218}, Reach), (ChartHit{Point, 1, 4})) << "one that is cut off whole can be grabbed";
}

TEST(ChartPlotTest, HeightsAndValuesGoBothWays) {
    ChartState state = SampleChart(
        {{ChartType::Column, {-30, 70}}, {ChartType::StackedLine100, {1, 1}}, {ChartType::StackedLine100, {1, 3}}});
    const ChartPlot plot(state, Area, 10);
    for (const double value : {-30.0, -0.5, 0.0, 12.25, 70.0}) {
        EXPECT_NEAR(plot.ValueAt(plot.YOf(value)), value, 1e-9);
        EXPECT_NEAR(plot.ValueAt(plot.YOf(value, 1), 1), value, 1e-9);
    }
    EXPECT_EQ(plot.YOf(1, 3), Area.y) << "shares have an axis of their own";
    EXPECT_EQ(plot.YOf(0, 3), Area.Bottom());
    EXPECT_NEAR(plot.ValueAt(70, 2), 0.75, 1e-9);
    EXPECT_TRUE(std::isfinite(plot.YOf(1e308)));
    EXPECT_LT(plot.YOf(1e308), Area.y - 1e5);

    state.series.resize(1);
    state.series[0].values = {-1.7e308, 1.7e308};
    const ChartPlot huge(state, Area, 4);
    EXPECT_NEAR(huge.YOf(0), 120, 1) << "no overflow on the way";
    EXPECT_NEAR(huge.ValueAt(huge.YOf(1e308)), 1e308, 1e298);
}

TEST(ChartPlotTest, LimitsThatAreShownAreOnTheAxis) {
    ChartState state = SampleChart({{ChartType::Column, {3, 7}}});
    state.valueAxis.optimum = {ChartLimit::Shown, 18};
    state.valueAxis.rangeMinimum = {ChartLimit::Hidden, -900};
    EXPECT_EQ(ChartPlot(state, Area, 5).Values().maximum, 20);
    EXPECT_EQ(ChartPlot(state, Area, 5).Values().minimum, 0) << "one that is not shown does not count";
    state.valueAxis.maximumIsAuto = false;
    state.valueAxis.maximum = 10;
    EXPECT_EQ(ChartPlot(state, Area, 5).Values().maximum, 10) << "the user's own end counts more";
}

/// Two columns per category (the second series 0 or negative) and a line above them; axis from -50 to 100.
TEST(ChartPlotTest, HitsWhatIsSeen) {
    ChartState state = SampleChart(
        {{ChartType::Column, {60, 60, 60}}, {ChartType::Column, {0, -50, 20}}, {ChartType::Line, {100, 60, 100}}});
    AddTrend(state, 1, TrendKind::Linear);
    const ChartPlot plot(state, Area, 10);
    const ChartPoint line = plot.Point(3, 1);
    const ChartPoint next = plot.Point(3, 2);
    const ChartPoint zero = plot.Point(2, 1);
    const ChartPoint end = plot.Point(2, 2);
    const ChartRect column = plot.Column(1, 1);
    struct Row {
        const char* name;
        ChartPoint place;
        ChartHit hit;
    };
    const std::vector<Row> rows = {
        {"inside a column", Middle(column), {Point, 1, 1}},
        {"beside it, within reach", {column.x - 3, column.y + 9}, {Point, 1, 1}},
        {"beside it, out of reach", {column.x - 5, column.Bottom() - 9}, {ChartHitCode::PlotArea, 0, 0}},
        {"a column of height 0, from above", {zero.x, zero.y - 3}, {Point, 2, 1}},
        {"a column of height 0, from below", {zero.x, zero.y + 3}, {Point, 2, 1}},
        {"inside a negative column", {end.x, end.y - 30}, {Point, 2, 2}},
        {"the end of a negative column, from below", {end.x, end.y + 3}, {Point, 2, 2}},
        {"a point of a line", {line.x + 2, line.y + 2}, {Point, 3, 1}},
        {"a point of a line over a column", {next.x - 1, next.y + 1}, {Point, 3, 2}},
        {"a line between its points",
         {line.x * 0.7 + next.x * 0.3, line.y * 0.7 + next.y * 0.3 + 1},
         {ChartHitCode::Series, 3, 0}},
        {"a trend line between columns", {Area.x + 100, plot.YOf(60) + 1}, {ChartHitCode::Trendline, 1, 0}},
        {"a trend line over a column", {plot.Column(1, 2).x + 10, plot.YOf(60) + 2}, {ChartHitCode::Trendline, 1, 0}},
        {"nothing but the plot area", {Area.x + 100, Area.y + 5}, {ChartHitCode::PlotArea, 0, 0}},
        {"outside", {Area.x - 6, Area.y + 5}, {ChartHitCode::None, 0, 0}},
        {"not a place", {NAN, NAN}, {ChartHitCode::None, 0, 0}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(plot.HitTest(row.place, Reach), row.hit) << row.name;
    }
}

TEST(ChartPlotTest, TheUppermostOfEquallyNearOnesIsHit) {
    ChartState state = SampleChart({{ChartType::Line, {5, 5}}, {ChartType::Line, {5, 8}}, {ChartType::Line, {1, 5.2}}});
    const ChartPlot lines(state, Area, 10);
    EXPECT_EQ(lines.HitTest(lines.Point(1, 1), Reach), (ChartHit{Point, 2, 1}));
    EXPECT_EQ(lines.HitTest(lines.Point(1, 2), 20), (ChartHit{Point, 1, 2})) << "nearest first";
    const ChartPoint below{lines.Point(2, 1).x, lines.Point(2, 1).y + Reach};
    EXPECT_EQ(lines.HitTest(below, below.y - lines.Point(2, 1).y), (ChartHit{Point, 2, 1})) << "just within reach";

    state = SampleChart(
        {{ChartType::StackedColumn, {40}}, {ChartType::StackedColumn, {0}}, {ChartType::StackedColumn, {60}}});
    const ChartPlot stack(state, Area, 10);
    EXPECT_EQ(stack.HitTest({160, stack.YOf(40) + 1}, Reach), (ChartHit{Point, 1, 1}));
    EXPECT_EQ(stack.HitTest({160, stack.YOf(40) - 1}, Reach), (ChartHit{Point, 3, 1}));
}

/// Hundreds of categories on few pixels: reach covers several of them.
TEST(ChartPlotTest, HitsTheNearestOfManyNarrowOnes) {
    std::vector<double> values(1200, 10);
    values[600] = 20;
    const ChartState state = SampleChart({{ChartType::Column, values}});
    const ChartPlot plot(state, Area, 10);
    const ChartPoint peak = plot.Point(1, 601);
    EXPECT_EQ(plot.HitTest({peak.x + 1.5, peak.y + 20}, Reach), (ChartHit{Point, 1, 601}));
}

TEST(ChartPlotTest, TrendLinesFollowTheirSeries) {
    ChartState state = SampleChart({{ChartType::Line, {2, 4, 6, 8, 10}}, {ChartType::Line, {1, 1, -1, 1, 1}}});
    AddTrend(state, 1, TrendKind::Linear);
    AddTrend(state, 1, TrendKind::MovingAverage, 3);
    AddTrend(state, 1, TrendKind::Power);
    AddTrend(state, 2, TrendKind::Exponential);
    state.categoryAxis.visibleCategories = 4;
    const ChartPlot plot(state, Area, 10);

    const auto linear = plot.Trend(1, 1);
    ASSERT_EQ(linear.size(), 1U);
    ASSERT_EQ(linear[0].size(), 4U) << "the visible categories alone";
    for (int category = 1; category <= 4; ++category) {
        const ChartPoint place = linear[0][static_cast<std::size_t>(category - 1)];
        EXPECT_NEAR(place.x, plot.CategoryCenter(category), 1e-9);
        EXPECT_NEAR(place.y, plot.Point(1, category).y, 1e-9) << "a line through points of a line";
    }
    const auto average = plot.Trend(1, 2);
    ASSERT_EQ(average.size(), 1U);
    ASSERT_EQ(average[0].size(), 2U) << "from the first whole window on";
    EXPECT_NEAR(average[0][0].x, plot.CategoryCenter(3), 1e-9);
    EXPECT_NEAR(average[0][0].y, plot.YOf(4), 1e-9);
    EXPECT_GT(plot.Trend(1, 3).at(0).size(), 20U) << "a curve is drawn in small pieces";
    EXPECT_TRUE(plot.Trend(2, 1).empty());
    EXPECT_NE(plot.Fit(2, 1).Limit(), "");
}

TEST(ChartPlotTest, TheAxisLeavesRoomForTrendLines) {
    ChartState state = SampleChart({{ChartType::Column, {1, 1, 1, 1, 1, 31}}});
    EXPECT_EQ(ChartPlot(state, Area, 10).Values().minimum, 0);
    AddTrend(state, 1, TrendKind::Linear);
    const ChartPlot plot(state, Area, 10);
    EXPECT_LE(plot.Values().minimum, plot.Fit(1, 1).At(1).value()) << "it begins below zero";

    state.series[0].values = {1e-130, 1, 1, 1, 1, 1};
    state.series[0].look->trends.clear();
    AddTrend(state, 1, TrendKind::Exponential);
    EXPECT_LE(ChartPlot(state, Area, 10).Values().maximum, 2) << "but not for a curve that would leave nothing to see";
}

TEST(ChartPlotTest, ATrendStandsWhereItsSeriesStands) {
    for (const ChartType type : {ChartType::Column, ChartType::Line, ChartType::StackedColumn, ChartType::StackedLine,
                                 ChartType::StackedColumn100, ChartType::StackedLine100}) {
        ChartState state = SampleChart({{type, {500, 500}}, {type, {500, 1500}}, {type, {100, 200}}});
        for (int series = 1; series <= 3; ++series) {
            AddTrend(state, series, TrendKind::Linear);
        }
        const ChartPlot plot(state, Area, 10);
        for (int series = 1; series <= 3; ++series) {
            // A straight line through two points meets both.
            const auto trend = plot.Trend(series, 1).at(0);
            EXPECT_NEAR(trend.at(0).y, plot.Point(series, 1).y, 1e-9) << static_cast<int>(type) << ", " << series;
            EXPECT_NEAR(trend.at(1).y, plot.Point(series, 2).y, 1e-9) << static_cast<int>(type) << ", " << series;
        }
    }
}

TEST(ChartClipTest, LinesAreCutAtTheirCrossings) {
    struct Row {
        const char* name;
        std::vector<ChartPoint> line;
        const char* parts;
    };
    const std::vector<Row> rows = {
        {"inside", {{0, 10}, {10, 20}, {20, 10}}, "0,10 10,20 20,10; "},
        {"on the border", {{0, 0}, {10, 0}, {20, 20}}, "0,0 10,0 20,20; "},
        {"above", {{0, -10}, {10, -20}}, ""},
        {"out below and in again", {{0, 10}, {10, 30}, {20, 10}}, "0,10 5,20; 15,20 20,10; "},
        {"right through", {{0, -20}, {10, 40}, {20, -20}}, "3,0 7,20; 13,20 17,0; "},
        {"far away", {{0, 1e6}, {10, 10}, {20, -1e6}}, "10,20 10,10 10,0; "},
        {"one point", {{0, 10}}, ""},
        {"none", {}, ""},
    };
    for (const Row& row : rows) {
        std::string parts;
        for (const std::vector<ChartPoint>& part : LineBetween(row.line, {0, 20})) {
            for (std::size_t i = 0; i < part.size(); ++i) {
                parts += (i > 0 ? " " : "") + std::to_string(std::lround(part[i].x)) + "," +
                         std::to_string(std::lround(part[i].y));
            }
            parts += "; ";
        }
        EXPECT_EQ(parts, row.parts) << row.name;
    }
}

TEST(ChartClipTest, AreasKeepWhatIsBetween) {
    const auto size = [](const std::vector<ChartPoint>& outline) {
        double twice = 0;
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const ChartPoint here = outline[i];
            const ChartPoint next = outline[(i + 1) % outline.size()];
            twice += here.x * next.y - next.x * here.y;
        }
        return std::abs(twice) / 2;
    };
    struct Row {
        const char* name;
        std::vector<ChartPoint> outline;
        double size;
    };
    const std::vector<Row> rows = {
        {"inside", {{0, 0}, {10, 0}, {10, 20}, {0, 20}}, 200},
        {"taller on both sides", {{0, -1e6}, {10, -1e6}, {10, 1e6}, {0, 1e6}}, 200},
        {"a corner below", {{0, 0}, {10, 0}, {10, 40}}, 150},
        {"above", {{0, -10}, {10, -10}, {10, -20}}, 0},
        {"none", {}, 0},
    };
    for (const Row& row : rows) {
        const std::vector<ChartPoint> kept = AreaBetween(row.outline, {0, 20});
        EXPECT_NEAR(size(kept), row.size, 1e-6) << row.name;
        for (const ChartPoint place : kept) {
            EXPECT_TRUE((ChartHeights{0, 20}.Contain(place))) << row.name;
        }
    }
}

TEST(ChartPlotTest, StandsEmptyChartsAndAreas) {
    const ChartState nothing;
    const ChartPlot empty(nothing, Area, 10);
    EXPECT_LT(empty.LastCategory(), empty.FirstCategory());
    EXPECT_EQ(empty.HitTest({100, 100}, Reach).code, ChartHitCode::PlotArea);
    EXPECT_TRUE(std::isfinite(empty.YOf(5)));

    ChartState state = SampleChart({{ChartType::Column, {1, 2}}, {ChartType::Line, {1, 2}}});
    AddTrend(state, 1, TrendKind::Logarithmic);
    const ChartPlot flat(state, {10, 20, 0, 0}, 0);
    EXPECT_TRUE(std::isfinite(flat.Column(1, 1).y) && std::isfinite(flat.Point(2, 2).x));
    EXPECT_TRUE(std::isfinite(flat.ValueAt(20)));
    EXPECT_EQ(flat.HitTest({500, 500}, Reach).code, ChartHitCode::None);
}

}  // namespace
}  // namespace planview
