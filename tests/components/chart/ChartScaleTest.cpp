// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "components/chart/ChartScale.h"

namespace planview {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();

/// As short as it can be read back, so that 0.30000000000000004 is seen.
std::string Shortest(double value) {
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

/// "0 to 10: 0 5 10".
std::string Show(const ChartScale& scale) {
    std::string text = Shortest(scale.minimum) + " to " + Shortest(scale.maximum) + ":";
    for (int i = 0; i < scale.markCount; ++i) {
        text += " " + Shortest(scale.Mark(i));
    }
    return text;
}

TEST(ChartScaleTest, PutsNiceMarksAroundTheData) {
    struct Row {
        const char* name;
        ChartScaleRequest request;
        const char* shown;
    };
    const std::optional<double> free;
    for (const Row& row : {
             Row{"nothing", {0, 0}, "0 to 1: 0 0.2 0.4 0.6 0.8 1"},
             {"positive", {3, 97}, "0 to 100: 0 20 40 60 80 100"},
             {"ends on a mark", {0, 8}, "0 to 8: 0 1 2 3 4 5 6 7 8"},
             {"steps of 2.5", {0, 19}, "0 to 20: 0 2.5 5 7.5 10 12.5 15 17.5 20"},
             {"negative", {-97, -3}, "-100 to 0: -100 -80 -60 -40 -20 0"},
             {"both signs", {-30, 45}, "-30 to 50: -30 -20 -10 0 10 20 30 40 50"},
             {"no dirt", {0.05, 0.7}, "0 to 0.7: 0 0.1 0.2 0.3 0.4 0.5 0.6 0.7"},
             {"dirt in the data adds no step", {0, 0.1 + 0.2, free, free, true, 3}, "0 to 0.3: 0 0.1 0.2 0.3"},
             {"room for one step", {2, 7, free, free, true, 1}, "0 to 10: 0 10"},
             {"one step, both signs", {-3, 8, free, free, true, 1}, "-10 to 10: -10 0 10"},
             {"room for no step", {2, 7, free, free, true, 0}, "0 to 10: 0 10"},
             {"equal", {5, 5, free, free, true, 5}, "0 to 5: 0 1 2 3 4 5"},
             {"equal, lines", {5, 5, free, free, false, 5}, "0 to 5: 0 1 2 3 4 5"},
             {"lines far from zero", {1003, 1097, free, free, false, 5}, "1000 to 1100: 1000 1020 1040 1060 1080 1100"},
             {"lines far below zero", {-1097, -1003, free, free, false, 2}, "-1100 to -1000: -1100 -1050 -1000"},
             {"lines near zero", {10, 97, free, free, false, 5}, "0 to 100: 0 20 40 60 80 100"},
             {"columns far from zero", {1003, 1097, free, free, true, 3}, "0 to 1500: 0 500 1000 1500"},
             {"fixed minimum", {12, 97, 10, free, true, 5}, "10 to 100: 20 40 60 80 100"},
             {"fixed maximum below the data", {12, 97, free, 50, true, 5}, "0 to 50: 0 10 20 30 40 50"},
             {"both fixed, off the marks", {12, 97, 3.5, 17, true, 7}, "3.5 to 17: 4 6 8 10 12 14 16"},
             {"fixed with no nice mark at the wide step", {0, 9, 3.1, 3.9, true, 1}, "3.1 to 3.9: 3.5"},
             {"fixed ends the wrong way round", {12, 97, 80, 40, true, 4}, "0 to 40: 0 10 20 30 40"},
             {"fixed ends equal at zero", {12, 97, 0, 0, true, 5}, "0 to 100: 0 20 40 60 80 100"},
             {"fixed minimum above the data", {12, 97, 500, free, true, 5}, "0 to 100: 0 20 40 60 80 100"},
             {"fixed maximum below zero", {12, 97, free, -5, true, 5}, "0 to 100: 0 20 40 60 80 100"},
             {"fixed ends that are no numbers", {12, 97, NoNumber, Infinite, true, 5}, "0 to 100: 0 20 40 60 80 100"},
             {"data that are no numbers", {NoNumber, 4, free, free, true, 4}, "0 to 4: 0 1 2 3 4"},
             {"data the wrong way round", {4, 0, free, free, true, 4}, "0 to 4: 0 1 2 3 4"},
             {"tiny", {0, 7e-300, free, free, true, 4}, "0 to 8e-300: 0 2e-300 4e-300 6e-300 8e-300"},
             {"huge", {-1e308, 1e308, free, free, true, 4}, "-1e+308 to 1e+308: -1e+308 -5e+307 0 5e+307 1e+308"},
             {"largest", {0, Largest, free, free, true, 2}, "0 to 1.7976931348623157e+308: 0 1e+308"},
         }) {
        EXPECT_EQ(Show(NiceScale(row.request)), row.shown) << row.name;
    }
}

TEST(ChartScaleTest, CountsTheDigitsThatTellMarksApart) {
    struct Row {
        double maximum;
        int decimals;
    };
    for (const Row& row : {Row{100, 0}, {19, 1}, {8, 0}, {0.7, 1}, {0.19, 3}, {0.016, 3}, {1.9e9, 0}}) {
        EXPECT_EQ(NiceScale({0, row.maximum}).decimals, row.decimals) << row.maximum;
    }
}

std::string Show(const ChartScaleRequest& request) {
    const auto fixed = [](std::optional<double> end) { return end ? Shortest(*end) : "free"; };
    return "data " + Shortest(request.dataMinimum) + " to " + Shortest(request.dataMaximum) + ", ends " +
           fixed(request.fixedMinimum) + " and " + fixed(request.fixedMaximum) + ", " +
           (request.includeZero ? "with" : "without") + " zero, " + std::to_string(request.maximumSteps) + " steps";
}

void ExpectSound(const ChartScaleRequest& request) {
    const ChartScale scale = NiceScale(request);
    ASSERT_TRUE(std::isfinite(scale.minimum) && std::isfinite(scale.maximum) && scale.minimum < scale.maximum);
    ASSERT_GE(scale.markCount, 1);
    ASSERT_LE(scale.markCount, std::max(2, request.maximumSteps) + 1);
    const double slack = scale.step * 1e-6;
    for (int i = 0; i < scale.markCount; ++i) {
        const double mark = scale.Mark(i);
        ASSERT_TRUE(mark >= scale.minimum - slack && mark <= scale.maximum + slack) << "mark " << mark;
        ASSERT_TRUE(i == 0 || mark > scale.Mark(i - 1)) << "mark " << mark;
    }
    if (!request.fixedMinimum && !request.fixedMaximum) {
        ASSERT_LE(scale.minimum, request.dataMinimum + slack);
        ASSERT_GE(scale.maximum, request.dataMaximum - slack);
    }
}

TEST(ChartScaleTest, IsSoundForAnyNumbers) {
    const std::vector<double> numbers = {-Largest,  -1e308, -3.7e15,      -1e15 - 1, -12.3,  -1,    -1e-300,
                                         -Smallest, 0,      Smallest,     1e-310,    1e-300, 0.1,   7,
                                         99,        1e15,   1e15 + 0.125, 1e15 + 1,  1e100,  1e308, Largest};
    std::vector<std::optional<double>> ends = {std::nullopt, -Largest, -1, 0, 1e-300, 6.9, 1e15, Largest};
    for (const double low : numbers) {
        for (const double high : numbers) {
            for (const std::optional<double>& minimum : ends) {
                for (const std::optional<double>& maximum : ends) {
                    for (const int steps : {1, 8}) {
                        const ChartScaleRequest request{
                            std::min(low, high), std::max(low, high), minimum, maximum, low < high, steps};
                        ExpectSound(request);
                        ASSERT_FALSE(testing::Test::HasFatalFailure()) << Show(request) << "\n"
                                                                       << Show(NiceScale(request));
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace planview
