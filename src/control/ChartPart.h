// SPDX-License-Identifier: MIT
#pragma once

#include "chart/ChartCommands.h"
#include "chart/ChartData.h"
#include "components/chart/ChartControl.h"
#include "control/GridPart.h"
#include "dialogs/ChartOptions.h"

namespace planview {

/// The chart of a control, and what fills it and changes its looks.
struct ChartPart {
    ChartPart(ControlShared& shared, GridPart& grid);

    /// Brings the chart up to date where it is shown.
    void Step() { commands.ChartStep(); }

    ChartControl control;
    ChartSettings settings;
    ChartData data;
    ChartCommands commands;
    ChartOptions options;
};

}  // namespace planview
