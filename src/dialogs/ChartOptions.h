// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include <planview/Platform.h>

#include "automation/TableSlots.h"
#include "dialogs/FormControls.h"
#include "grid/ChartSettings.h"
#include "grid/GridSettings.h"
#include "grid/HostUpdate.h"

namespace planview {

class frmChart;

/// The command that lets the user change how the chart looks and what can be done in it.
class ChartOptions {
public:
    struct Parts {
        GridSettings& gridSettings;
        ChartSettings& chartSettings;
        const TableSlots& tables;
        HostUpdate& hostUpdate;
        Forms& forms;
        MessageBoxes& messageBoxes;
        ColorChooser chooseColor;
        /// The type that all series have; none for a mix.
        std::function<std::optional<ChartType>()> commonType;
        /// The number code of the value axis; empty for none.
        std::function<std::string()> valueFormat;
        /// Gives the whole chart this type; called only when another one was chosen.
        std::function<void(ChartType)> chooseType;
        /// Sets the chart up anew where it is shown.
        std::function<void()> rebuildChart;
    };

    explicit ChartOptions(Parts parts) : parts_(std::move(parts)) {}

    /// Shows the dialog filled from the settings and waits for it. On OK the settings get what was chosen, GRID_ATTR
    /// (where the host has handed it over) what it can hold of it, the chart is set up anew and the host is told. On
    /// Cancel nothing changes. Does nothing while the dialog is open.
    void Run();

private:
    void Fill(frmChart& form) const;
    void Keep(const frmChart& form);
    void WriteTable() const;

    Parts parts_;
    bool open_ = false;
};

}  // namespace planview
