// SPDX-License-Identifier: MIT
#include <cmath>
#include <initializer_list>
#include <limits>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "SampleChart.h"
#include "components/chart/ChartStacking.h"

namespace planview {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();

/// One line per series: "0>1 0>-2" says from where to where it reaches in each category.
std::string Show(const ChartStack& stack) {
    std::ostringstream text;
    for (const std::vector<ChartSpan>& spans : stack.spans) {
        for (std::size_t i = 0; i < spans.size(); ++i) {
            text << (i ? " " : "") << spans[i].from << ">" << spans[i].to;
        }
        text << "\n";
    }
    return text.str();
}

TEST(ChartStackingTest, StacksEachKindByItself) {
    struct Row {
        const char* name;
        std::vector<SampleSeries> series;
        const char* shown;
    };
    constexpr auto plain = ChartType::Column;
    constexpr auto column = ChartType::StackedColumn;
    constexpr auto column100 = ChartType::StackedColumn100;
    constexpr auto line = ChartType::StackedLine;
    constexpr auto line100 = ChartType::StackedLine100;
    const std::vector<Row> rows = {
        {"plain ones stand side by side", {{plain, {1, -2}}, {plain, {3, 4}}}, "0>1 0>-2\n0>3 0>4\n"},
        {"columns pile up and down",
         {{column, {1, -2}}, {column, {-3, -4}}, {column, {5, 6}}},
         "0>1 0>-2\n0>-3 -2>-6\n1>6 0>6\n"},
        {"a zero stands on the positive pile", {{column, {2}}, {column, {0}}, {column, {-1}}}, "0>2\n2>2\n0>-1\n"},
        {"lines add up whatever the sign", {{line, {1, -2}}, {line, {-3, 5}}}, "0>1 0>-2\n1>-2 -2>3\n"},
        {"shares of the absolute values",
         {{column100, {1, -1}}, {column100, {3, 3}}},
         "0>0.25 0>-0.25\n0.25>1 0>0.75\n"},
        {"line shares", {{line100, {3, -1}}, {line100, {1, 3}}}, "0>0.75 0>-0.25\n0.75>1 -0.25>0.5\n"},
        {"a category of zeros", {{column100, {0, 1}}, {column100, {0, 1}}}, "0>0 0>0.5\n0>0 0.5>1\n"},
        {"kinds do not add up with each other",
         {{column, {1}}, {line, {2}}, {plain, {3}}, {column, {4}}, {line, {5}}},
         "0>1\n0>2\n0>3\n1>5\n2>7\n"},
        {"missing values and those that are no numbers count as 0",
         {{column, {1}}, {column, {NAN, 2}}, {plain, {INFINITY, -INFINITY}}},
         "0>1 0>0\n1>1 0>2\n0>0 0>0\n"},
        {"huge sums stop at the largest number",
         {{column, {Largest}}, {column, {Largest}}},
         "0>1.79769e+308\n1.79769e+308>1.79769e+308\n"},
        {"shares of huge values", {{column100, {Largest}}, {column100, {Largest}}}, "0>0.5\n0.5>1\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Show(StackSeries(SampleChart(row.series))), row.shown) << row.name;
    }
}

/// Also of what is scrolled away: the axis stays where it is while the user scrolls.
TEST(ChartStackingTest, FindsTheExtremesOfAllCategories) {
    ChartState state = SampleChart({{ChartType::StackedColumn, {3, 1, 2, -1}},
                                    {ChartType::StackedColumn, {1, 3, -4, -1}},
                                    {ChartType::StackedLine100, {1, 1, 1, 1}},
                                    {ChartType::StackedLine100, {1, 3, 1, 1}}});
    state.categoryAxis.visibleCategories = 2;
    state.categoryAxis.startAtCategory = 2;
    const ChartStack both = StackSeries(state);
    EXPECT_EQ(std::pair(both.valueMinimum, both.valueMaximum), std::pair(-4.0, 4.0));
    EXPECT_EQ(std::pair(both.shareMinimum, both.shareMaximum), std::pair(0.25, 1.0)) << "a line does not reach to zero";
    EXPECT_TRUE(both.anyOnValues && both.anyOnShares);

    const ChartStack lines =
        StackSeries(SampleChart({{ChartType::Line, {1003, 1001}}, {ChartType::Line, {1002, 1004}}}));
    EXPECT_EQ(std::pair(lines.valueMinimum, lines.valueMaximum), std::pair(1001.0, 1004.0));
    EXPECT_FALSE(lines.anyOnShares);
    EXPECT_FALSE(StackSeries(ChartState()).anyOnValues);
}

/// Every way to stack values of every sign: the value that a series has is the one that ends where it ends.
TEST(ChartStackingTest, TheOwnValueEndsWhereTheSeriesEnds) {
    for (const ChartType type : {ChartType::Column, ChartType::StackedColumn, ChartType::StackedColumn100,
                                 ChartType::StackedLine, ChartType::StackedLine100, ChartType::Line}) {
        const ChartState state = SampleChart({{type, {12.5, -3, 0, 1e6, 7, -1, 0, 1e-9}},
                                              {type, {2, 8, -5, 4, 1, -2, 0, 3e-9}},
                                              {type, {30, -6, 2.25, 5, 0, -3, 4, 2e-9}},
                                              {type, {1, 1, -1, 2, 0, -4, 0, 0}}});
        const ChartStack stack = StackSeries(state);
        for (int series = 0; series < state.SeriesCount(); ++series) {
            for (int category = 0; category < state.CategoryCount(); ++category) {
                const double value = state.series[series].values[category];
                const double own = OwnValueFor(state, series, category, stack.spans[series][category].to);
                double size = 0;
                for (const ChartSeries& each : state.series) {
                    size += std::abs(each.values[category]);
                }
                EXPECT_NEAR(own, value, size * 1e-10)
                    << "type " << static_cast<int>(type) << ", series " << series << ", category " << category;
            }
        }
    }
}

/// What the user gets who drags a point: the series ends where it was dropped, or as near as it can.
TEST(ChartStackingTest, ADraggedPointEndsWhereItWasDropped) {
    struct Row {
        const char* name;
        ChartType type;
        std::vector<double> values;  // of one category, by series
        int series;
        double to;
        double value;
        double end;
    };
    constexpr auto column = ChartType::StackedColumn;
    constexpr auto column100 = ChartType::StackedColumn100;
    constexpr auto line100 = ChartType::StackedLine100;
    const std::vector<Row> rows = {
        {"plain", ChartType::Line, {1, 2}, 1, -7.5, -7.5, -7.5},
        {"stacked, higher", column, {10, 5, 3}, 1, 18, 8, 18},
        {"stacked, into the pile below", column, {10, 5, 3}, 1, 4, 0, 10},
        {"stacked, through zero", column, {10, 5, -3}, 1, -2, -2, -2},
        {"stacked, on the negative pile", column, {-10, 5}, 1, -4, 0, 0},
        {"stacked line, below the one under it", ChartType::StackedLine, {10, 5}, 1, 4, -6, 4},
        {"share, to the half", column100, {10, 30}, 0, 0.5, 30, 0.5},
        {"share in the middle", column100, {10, 5, 30}, 1, 0.625, 40, 0.625},
        {"share, below zero", column100, {10, 30}, 0, -0.25, -10, -0.25},
        {"share, into the pile below", column100, {10, 5, 30}, 1, 0.1, 0, 0.25},
        {"share, beyond all of it", column100, {10, 30}, 0, 1.5, 29970, 0.999},
        {"the last share always ends at 1", column100, {10, 30}, 1, 0.5, 30, 1},
        {"a share without others", column100, {0, 30, 0}, 1, 0.5, 30, 1},
        {"line share, downwards", line100, {3, 1, 2}, 1, 0.2, -5.0 / 3, 0.2},
    };
    for (const Row& row : rows) {
        std::vector<SampleSeries> series;
        for (const double value : row.values) {
            series.push_back({row.type, {value}});
        }
        ChartState state = SampleChart(series);
        const double value = OwnValueFor(state, row.series, 0, row.to);
        EXPECT_NEAR(value, row.value, std::abs(row.value) * 1e-9) << row.name;
        state.series[static_cast<std::size_t>(row.series)].values[0] = value;
        EXPECT_NEAR(StackSeries(state).spans[static_cast<std::size_t>(row.series)][0].to, row.end, 1e-9) << row.name;
    }
}

}  // namespace
}  // namespace planview
