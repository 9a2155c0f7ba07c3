// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "components/chart/ChartControl.h"

namespace planview {

/// What the chart and the objects of its object model share. Lives as long as any of them, so that an object which the
/// host has kept stays harmless when the chart is gone.
struct ChartModel {
    ChartState state;
    ChartWatcher* watcher = nullptr;
    ChartEvents* events = nullptr;
    bool redraw = true;
    bool changed = false;
    std::uint64_t version = 0;
    /// By key, for all series that ever had one.
    std::unordered_map<std::string, std::shared_ptr<ChartSeriesLook>> looks;
    /// What is selected, through a rebuild that numbers the series anew.
    std::string selectedKey;
    ChartHit selected;

    /// To be called after every change of what a view shows.
    void Touch() {
        ++version;
        changed = true;
        Report();
    }
    void SetRedraw(bool on) {
        redraw = on;
        Report();
    }

    /// `number` from 1; throws SubscriptOutOfRange.
    [[nodiscard]] ChartSeries& SeriesAt(std::int32_t number);

    /// Removes all series and categories; what was remembered by key stays.
    void DeleteContents();
    void CreateDataRows(std::int32_t categories, std::int32_t series, std::int16_t dataRows);
    /// The series take the looks of their keys; see ChartControl::NameSeries().
    void NameSeries(std::int32_t number, const std::string& key, const std::string& format);

    /// Series stand in the rows of the data sheet instead of its columns.
    bool seriesInRows = false;

private:
    void Report() {
        if (redraw && changed && watcher) {
            changed = false;
            watcher->ChartChanged();
        }
    }
    [[nodiscard]] int NextStyle() const;
};

/// Throws SubscriptOutOfRange: "`what` `index` is not between 1 and `count`".
[[noreturn]] void ThrowNoSuchIndex(const char* what, std::int32_t index, std::int32_t count);

/// The root of the object model.
[[nodiscard]] ObjectRef MakeChartObject(const std::shared_ptr<ChartModel>& model);

}  // namespace planview
