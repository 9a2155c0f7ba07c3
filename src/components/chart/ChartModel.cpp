// SPDX-License-Identifier: MIT
#include "components/chart/ChartModel.h"

#include <algorithm>
#include <array>

#include "components/chart/SeriesColors.h"

namespace planview {

namespace {

/// More values than this are a mistake of the caller, not a chart.
constexpr std::int64_t MaxValues = 20'000'000;

void GiveStyle(ChartSeriesLook& look, int style) {
    look.style = style;
    look.color = SeriesColors[static_cast<std::size_t>(style)].onLight;
}

}  // namespace

void ThrowNoSuchIndex(const char* what, std::int32_t index, std::int32_t count) {
    throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                          std::string(what) + " " + std::to_string(index) +
                              (count > 0 ? " is not between 1 and " + std::to_string(count) : ": there is none"));
}

ChartSeries& ChartModel::SeriesAt(std::int32_t number) {
    if (number < 1 || number > state.SeriesCount()) {
        ThrowNoSuchIndex("Series", number, state.SeriesCount());
    }
    return state.series[static_cast<std::size_t>(number) - 1];
}

void ChartModel::DeleteContents() {
    state.series.clear();
    state.categories.clear();
    state.selected = {};
    Touch();
}

void ChartModel::CreateDataRows(std::int32_t categories, std::int32_t series, std::int16_t dataRows) {
    constexpr std::int16_t SeriesInColumns = 1;
    constexpr std::int16_t SeriesInRows = 2;
    if (categories < 0 || series < 0 || std::int64_t{categories} * series > MaxValues) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "A chart of " + std::to_string(series) + " series with " + std::to_string(categories) +
                                  " categories is not possible");
    }
    if (dataRows != SeriesInColumns && dataRows != SeriesInRows) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "Series stand in columns (1) or rows (2), not " + std::to_string(dataRows));
    }
    seriesInRows = dataRows == SeriesInRows;
    state.categories.assign(static_cast<std::size_t>(categories), {});
    state.series.assign(static_cast<std::size_t>(series), {});
    for (std::size_t i = 0; i < state.series.size(); ++i) {
        ChartSeries& one = state.series[i];
        one.type = state.type;
        one.values.assign(static_cast<std::size_t>(categories), 0.0);
        one.look = std::make_shared<ChartSeriesLook>();
        GiveStyle(*one.look, static_cast<int>(i % SeriesColors.size()));
    }
    state.selected = {};
    Touch();
}

void ChartModel::NameSeries(std::int32_t number, const std::string& key, const std::string& format) {
    ChartSeries& series = SeriesAt(number);
    const auto known = looks.find(key);
    if (known != looks.end()) {
        series.look = known->second;
    } else {
        GiveStyle(*series.look, NextStyle());
        looks.emplace(key, series.look);
    }
    series.key = key;
    series.format = format;
    if (!key.empty() && key == selectedKey && selected.category <= state.CategoryCount()) {
        state.selected = selected;
        state.selected.series = number;
    }
    Touch();
}

/// The style that the fewest keys have, the first of those. A series whose colour is the host's leaves its style free.
int ChartModel::NextStyle() const {
    std::array<int, SeriesColors.size()> uses{};
    for (const auto& [key, look] : looks) {
        const auto style = static_cast<std::size_t>(look->style);
        uses[style] += look->color == SeriesColors[style].onLight ? 1 : 0;
    }
    return static_cast<int>(std::min_element(uses.begin(), uses.end()) - uses.begin());
}

}  // namespace planview
