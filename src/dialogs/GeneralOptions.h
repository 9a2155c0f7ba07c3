// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include <planview/Platform.h>

#include "automation/TableSlots.h"
#include "dialogs/FormControls.h"
#include "grid/GridSettings.h"
#include "grid/HostUpdate.h"
#include "grid/modGrid.h"

namespace planview {

class frmGrid;

/// The command that lets the user change how the grid behaves and which colours it has.
class GeneralOptions {
public:
    struct Parts {
        GridSettings& settings;
        const TableSlots& tables;
        modGrid& driver;
        HostUpdate& hostUpdate;
        Forms& forms;
        ColorChooser chooseColor;
    };

    explicit GeneralOptions(Parts parts) : parts_(std::move(parts)) {}

    /// Shows the dialog filled from the settings and waits for it. On OK the settings, row 1 of GRID_ATTR (where the
    /// host has handed it over) and the grid get what was chosen, in this order, and the host is told. On Cancel
    /// nothing changes. Does nothing while the dialog is open.
    void Run();

private:
    void Fill(frmGrid& form) const;
    void Keep(const frmGrid& form);
    void WriteTable() const;
    void ApplyToGrid() const;

    Parts parts_;
    bool open_ = false;
};

}  // namespace planview
