// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "components/chart/TrendFit.h"

namespace planview {
namespace {

using Numbers = std::vector<double>;

constexpr double Largest = std::numeric_limits<double>::max();

/// `count` values of a formula in the period.
Numbers Series(int count, const std::function<double(double)>& value) {
    Numbers numbers;
    for (int period = 1; period <= count; ++period) {
        numbers.push_back(value(period));
    }
    return numbers;
}

struct Sample {
    const char* name;
    Numbers values;
    int period = 2;
};

std::vector<Sample> Samples() {
    const auto noise = [](double x) { return std::sin(x * x * 12.9898) * 43.7; };
    return {
        {"a line", {3, 5, 7, 9}},
        {"two values", {4, 9}},
        {"equal values", {7.3, 7.3, 7.3, 7.3, 7.3}, 3},
        {"zeros", {0, 0, 0, 0}},
        {"negatives", {-5, -80, -13, -40.5}, 3},
        {"both signs", {-5, 12, 0, 3.25, -7}},
        {"a year of sales",
         {15284.7, 14010, 17250.4, 18020, 16990, 19110.25, 21003, 20250, 22780, 23014, 25990, 31002},
         12},
        {"many periods", Series(180, [&](double x) { return 250 + 3 * x + noise(x); }), 30},
        {"far from zero", Series(24, [&](double x) { return 1e12 + x + noise(x) / 100; }), 4},
        {"huge", {1e308, 1.5e308, 1.2e308, 1.7e308}, 3},
        {"tiny", {3e-300, 1e-300, 2e-300, 7e-300}},
        {"of all sizes", {1e-300, 1e-100, 1, 1e100, 1e300}, 3},
        {"one that stands out", {1, 1, 1, 1e15, 1, 1, 1}, 3},
        {"growth", Series(36, [](double x) { return 120 * std::exp(0.08 * x) + x; }), 6},
        {"decay", Series(36, [](double x) { return 900 * std::pow(x, -1.7); }), 6},
    };
}

constexpr TrendKind Kinds[] = {TrendKind::Linear, TrendKind::Logarithmic, TrendKind::Power, TrendKind::Exponential,
                               TrendKind::MovingAverage};

std::string Python(const std::string& arguments) {
    return "/usr/bin/python3 " + arguments;
}

/// Every kind that can be fitted to every sample, compared with what numpy finds by another way.
TEST(TrendFitTest, AgreesWithNumpy) {
    if (std::system(Python("-c 'import numpy' 2>/dev/null").c_str()) != 0) {
        GTEST_SKIP() << "python3-numpy is not installed";
    }
    struct Case {
        Sample sample;
        TrendFit fit;
    };
    std::vector<Case> cases;
    const std::string input = testing::TempDir() + "trend_samples.txt";
    const std::string output = testing::TempDir() + "trend_witness.txt";
    {
        std::ofstream file(input);
        file << std::setprecision(17);
        for (const Sample& sample : Samples()) {
            for (const TrendKind kind : Kinds) {
                TrendFit fit(kind, sample.values, sample.period);
                if (!fit.IsValid()) {
                    continue;
                }
                cases.push_back({sample, fit});
                file << TrendKindName(kind) << "\t" << sample.period;
                for (const double value : sample.values) {
                    file << "\t" << value;
                }
                file << "\n";
            }
        }
    }
    ASSERT_EQ(std::system(Python(PLANVIEW_FIT_WITH_NUMPY " <" + input + " >" + output).c_str()), 0);
    ASSERT_GT(cases.size(), 60U);

    std::ifstream witness(output);
    for (const auto& [sample, fit] : cases) {
        SCOPED_TRACE(std::string(TrendKindName(fit.Kind())) + " through " + sample.name);
        std::string line;
        ASSERT_TRUE(std::getline(witness, line));
        std::istringstream numbers(line);
        const auto next = [&] {
            std::string text;
            numbers >> text;
            return std::strtod(text.c_str(), nullptr);
        };
        double size = 0;
        for (const double value : sample.values) {
            size = std::max(size, std::abs(value));
        }
        const bool logarithms = fit.Kind() == TrendKind::Power || fit.Kind() == TrendKind::Exponential;
        const auto near = [&](double expected) { return (logarithms ? std::abs(expected) : size) * 1e-11; };
        if (fit.Kind() != TrendKind::MovingAverage) {
            const double a = next();
            EXPECT_NEAR(fit.A(), a, near(a));
            EXPECT_NEAR(fit.B(), next(), logarithms ? 1e-11 : size * 1e-11);
        } else {
            next();
            next();
        }
        for (std::size_t period = 1; period <= sample.values.size(); ++period) {
            const double expected = next();
            const std::optional<double> found = fit.At(static_cast<double>(period));
            ASSERT_EQ(found.has_value(), std::isfinite(expected)) << "period " << period;
            if (found) {
                EXPECT_NEAR(*found, expected, near(expected)) << "period " << period;
            }
        }
    }
}

TEST(TrendFitTest, SaysWhatIsInTheWay) {
    struct Row {
        TrendKind kind;
        Numbers values;
        int period;
        const char* limit;
    };
    const std::vector<Row> rows = {
        {TrendKind::Linear, {}, 2, "A linear trend line needs at least 2 values; there is none."},
        {TrendKind::Logarithmic, {5}, 2, "A logarithmic trend line needs at least 2 values; there is 1."},
        {TrendKind::MovingAverage, {5, 6}, 3, "A moving average over 3 periods needs at least 3 values; there are 2."},
        {TrendKind::MovingAverage, {5}, 0, "A moving average over 2 periods needs at least 2 values; there is 1."},
        {TrendKind::Exponential,
         {1, 2, -2.5, -3},
         2,
         "An exponential trend line needs values above 0; the value in period 3 is -2,5."},
        {TrendKind::Power, {0, 1}, 2, "A power trend line needs values above 0; the value in period 1 is 0."},
        {TrendKind::Linear, {1, NAN}, 2, "A linear trend line needs numbers; the value in period 2 is none."},
        {TrendKind::Linear, {-1, 0}, 2, ""},
        {TrendKind::Logarithmic, {-1, 0}, 2, ""},
    };
    for (const Row& row : rows) {
        const TrendFit fit(row.kind, row.values, row.period);
        EXPECT_EQ(fit.Limit(), row.limit);
        EXPECT_EQ(fit.IsValid(), fit.At(static_cast<double>(row.values.size())).has_value()) << row.limit;
    }
    const std::vector<std::string> periods = {"", "Feb 08"};
    const auto limitOf = [&](Numbers values) { return TrendFit(TrendKind::Linear, values).Limit(periods); };
    EXPECT_EQ(limitOf({1, NAN, 3}), "A linear trend line needs numbers; the value in Feb 08 is none.");
    EXPECT_EQ(limitOf({NAN, 1, 3}), "A linear trend line needs numbers; the value in period 1 is none.");
    EXPECT_EQ(limitOf({1, 2, NAN}), "A linear trend line needs numbers; the value in period 3 is none.");
}

TEST(TrendFitTest, HasValuesBetweenItsEndsAlone) {
    const Numbers values = {2, 4, 8, 16};
    const TrendFit linear(TrendKind::Linear, values);
    EXPECT_FALSE(linear.At(0.99));
    EXPECT_FALSE(linear.At(4.01));
    EXPECT_FALSE(linear.At(NAN));
    const TrendFit curve(TrendKind::Exponential, values);
    EXPECT_NEAR(curve.At(2.5).value(), std::pow(2, 2.5), 1e-12);
    const TrendFit average(TrendKind::MovingAverage, values, 3);
    EXPECT_FALSE(average.At(2.99));
    EXPECT_EQ(average.At(3), 14.0 / 3);
    EXPECT_NEAR(average.At(3.5).value(), 7, 1e-12) << "the straight line between two means";
    EXPECT_EQ(average.At(4), 28.0 / 3);
}

/// Where doubles alone would overflow on the way, or lose every digit.
TEST(TrendFitTest, KeepsItsDigitsAtTheEndsOfTheRange) {
    const TrendFit steep(TrendKind::Linear, Numbers{-Largest, Largest});
    EXPECT_EQ(steep.At(1), -Largest);
    EXPECT_EQ(steep.At(2), Largest);
    const TrendFit equal(TrendKind::Linear, Numbers(180, 0.1));
    EXPECT_EQ(equal.B(), 0);
    EXPECT_EQ(equal.At(180), 0.1);
    const TrendFit average(TrendKind::MovingAverage, Numbers{Largest, Largest, 1, 1}, 2);
    EXPECT_EQ(average.At(2), Largest);
    EXPECT_EQ(average.At(4), 1) << "nothing is left of the large values before";
}

}  // namespace
}  // namespace planview
