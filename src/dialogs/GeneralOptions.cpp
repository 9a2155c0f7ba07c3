// SPDX-License-Identifier: MIT
#include "dialogs/GeneralOptions.h"

#include "automation/BusyScope.h"
#include "dialogs/frmGrid.h"
#include "trace/ErrorTrap.h"

namespace planview {

using modPlan::TraceWrite;

void GeneralOptions::Run() {
    if (open_) {
        return;
    }
    const BusyScope open(open_);
    ErrorTrap("GRIDCTL", "GeneralOptions", [this] {
        TraceWrite("GRIDCTL", "{}", "#CHANGE GRID OPTIONS#", "BEGIN");
        bool changed = false;
        {
            frmGrid form(parts_.forms, parts_.chooseColor);
            const LoadedForm loaded(parts_.forms, form);
            Fill(form);
            parts_.forms.ShowModal(form);
            changed = form.ButtonPressed == "OK";
            if (changed) {
                Keep(form);
                WriteTable();
                ApplyToGrid();
                TraceWrite("GRIDCTL", "{changed}", "GeneralOptions", "");
            }
        }
        if (changed) {
            parts_.hostUpdate.StartUpdate();
        }
    });
}

void GeneralOptions::Fill(frmGrid& form) const {
    const GridSettings& settings = parts_.settings;
    form.Set_Text();
    form.Set_Layoutmode(parts_.settings.layoutMode);
    form.Set_BgColor(settings.backgroundColor);
    form.Set_GridLinesColor(settings.gridLineColor);
    form.chkMove.Value = settings.moveAllowed;
    form.chkResize.Value = settings.resizeAllowed;
    form.chkSingleValue.Value = settings.singleValue;
    form.Set_DragMode(settings.dragMode);
}

void GeneralOptions::Keep(const frmGrid& form) {
    GridSettings& settings = parts_.settings;
    settings.backgroundColor = form.Get_BgColor();
    settings.gridLineColor = form.Get_GridLinesColor();
    settings.moveAllowed = form.chkMove.Value;
    settings.resizeAllowed = form.chkResize.Value;
    settings.singleValue = form.chkSingleValue.Value;
    for (std::size_t mode = 0; mode < form.optDrag.size(); ++mode) {
        if (form.optDrag[mode].Value) {
            settings.dragMode = static_cast<std::int16_t>(mode);
        }
    }
}

void GeneralOptions::WriteTable() const {
    constexpr HostTable::Row Row = 1;
    const GridSettings& settings = parts_.settings;
    const HostTable gridAttr = parts_.tables.GRID_ATTR;
    if (!gridAttr.IsSet()) {
        return;
    }
    // The table holds prohibitions where the dialog holds permissions.
    gridAttr.PutFlag(Row, "NOMOVE_ALLOWED", settings.moveAllowed != 1);
    gridAttr.PutFlag(Row, "NORESIZE_ALLOWED", settings.resizeAllowed != 1);
    gridAttr.PutFlag(Row, "SINGLEVALUE", settings.singleValue == 1);
    gridAttr.Put(Row, "BGCOLOR", settings.backgroundColor);
    gridAttr.Put(Row, "GRIDLINE_COLOR", settings.gridLineColor);
}

void GeneralOptions::ApplyToGrid() const {
    constexpr bool NoRedraw = false;
    const GridSettings& settings = parts_.settings;
    modGrid& driver = parts_.driver;
    driver.MovePermission(settings.moveAllowed, NoRedraw);
    driver.ResizePermission(settings.resizeAllowed, NoRedraw);
    driver.DragDrop(settings.dragMode, NoRedraw);
    driver.BackgroundColor({}, settings.backgroundColor, NoRedraw);
    driver.GridlinesColor(settings.gridLineColor, NoRedraw);
    driver.Grid().Redraw();
}

}  // namespace planview
