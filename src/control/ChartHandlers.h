// SPDX-License-Identifier: MIT
#pragma once

#include "components/chart/ChartControl.h"
#include "grid/CellRules.h"

namespace planview {

class CommandRunner;
class MenuDispatch;
struct ChartPart;
struct ControlShared;
struct GridPart;

/// Hears what the user does in the chart and hands each event to the job that it belongs to, under an error trap.
class ChartHandlers final : public ChartEvents {
public:
    /// What it hands events to.
    struct Parts {
        const ControlShared& shared;
        GridPart& grid;
        ChartPart& chart;
        CommandRunner& runner;
        MenuDispatch& menus;
    };

    explicit ChartHandlers(const Parts& parts) : parts_(parts) {}

    void MouseDown(MouseButton button, ShiftState shift, const ChartHit& hit) override;
    void Selected(const ChartHit& hit) override;
    void Drag(const std::string& source) override;
    void DragDrop(const std::string& source) override;
    void GotFocus() override;
    void LostFocus() override;
    [[nodiscard]] bool PointMayChange(int series, int category) override;
    void PointValueChanged(int series, int category, double value) override;

private:
    /// The grid cell behind a point; none where the chart does not know it or the grid has it no more.
    [[nodiscard]] std::optional<Cell> CellOf(int series, int category) const;
    void ShowPopup(const ChartHit& hit);
    /// In the grid, whose selection the commands are about.
    void SelectLine(int series);
    void TakeTrendline(int series);

    Parts parts_;
};

}  // namespace planview
