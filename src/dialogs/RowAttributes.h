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

class frmRow;

/// The command that lets the user change the look of the first selected row.
class RowAttributes {
public:
    struct Parts {
        const GridSettings& settings;
        const TableSlots& tables;
        modGrid& driver;
        HostUpdate& hostUpdate;
        Forms& forms;
        MessageBoxes& messageBoxes;
        ColorChooser chooseColor;
        std::function<void()> chartStep;
    };

    explicit RowAttributes(Parts parts) : parts_(std::move(parts)) {}

    /// Shows the dialog filled from the first row of LINE_INDEX whose heading is selected, and waits for it. On OK that
    /// row of the table and of the grid get what was chosen and its selection ends; other rows keep all of theirs.
    /// Without a selected row nothing is shown. Does nothing while the dialog is open.
    void Run();

private:
    /// The row that the dialog is about.
    struct Template {
        HostTable table;
        HostTable::Row row = 0;
        std::string key;
    };
    [[nodiscard]] Template FindTemplate() const;
    void Fill(frmRow& form, const Template& line) const;
    [[nodiscard]] static std::string ChartMark(const Template& line);
    static void PutChartMark(const frmRow& form, const Template& line);
    void FillSample(frmRow& form, const Template& line) const;
    void Take(const frmRow& form, const Template& line) const;
    /// Shows the form; whether it has changed the row.
    [[nodiscard]] bool Edit(frmRow& form) const;

    Parts parts_;
    bool open_ = false;
};

}  // namespace planview
