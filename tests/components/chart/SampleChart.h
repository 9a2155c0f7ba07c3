// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "components/chart/ChartState.h"

namespace planview {

struct SampleSeries {
    ChartType type = ChartType::Column;
    std::vector<double> values;
};

/// A chart of these series, with as many categories as the longest of them has values.
inline ChartState SampleChart(const std::vector<SampleSeries>& samples) {
    ChartState state;
    std::size_t categories = 0;
    for (const SampleSeries& sample : samples) {
        ChartSeries& series = state.series.emplace_back();
        series.type = sample.type;
        series.values = sample.values;
        categories = std::max(categories, sample.values.size());
    }
    for (std::size_t i = 1; i <= categories; ++i) {
        state.categories.push_back("P" + std::to_string(i));
    }
    return state;
}

}  // namespace planview
