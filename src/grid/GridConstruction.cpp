// SPDX-License-Identifier: MIT
#include "grid/GridConstruction.h"

#include <string>

#include "grid/BusyScope.h"
#include "grid/LoaderSupport.h"
#include "grid/modGrid.h"

namespace planview {

void GridConstruction::CreateEmpty() {
    GridControl& grid = context_.grid;
    modGrid::Destructor(grid, NoRedraw);
    modGrid::CreateLabelled(grid);
    modGrid::CreatePalette(grid);
    modGrid::DoubleBuffering(grid, 1, NoRedraw);
    modGrid::MovePermission(grid, settings_.moveAllowed, NoRedraw);
    modGrid::ResizePermission(grid, settings_.resizeAllowed, NoRedraw);
    modGrid::DragDrop(grid, settings_.dragMode, NoRedraw);
    modGrid::BackgroundColor(grid, {}, settings_.backgroundColor, NoRedraw);
    modGrid::GridlinesColor(grid, settings_.gridLineColor, NoRedraw);
}

void GridConstruction::CreateFromTables() {
    if (building_) {
        throw AutomationError(AutomationErrorCode::Failed, "The grid is being built already");
    }
    const BusyScope building(building_);
    GridControl& grid = context_.grid;
    const modGrid::RedrawAtEnd redraw(grid);
    CreateEmpty();
    RunLoaders();
    ScrollToFirst();
    modGrid::Switch(grid, settings_.switched, NoRedraw);
    modGrid::LabelColWidth(grid, settings_.labelColumnWidth);
}

void GridConstruction::RunLoaders() const {
    // A host may take its tables back, or end the control, while one of them is being read.
    const TableSlots held = context_.tables;
    const LoaderContext context{context_.grid, held, context_.keys};
    Creation_Columns(context);
    Creation_Rows(context);
    Creation_FixedColumns(context);
    Creation_FixedLines(context);
    FillCells(context);
    FillFixedCells(context);
    CellAttributes(context);
}

void GridConstruction::ScrollToFirst() {
    // A position whose column or row the tables no longer have leaves the grid where it is.
    constexpr std::string_view CenterKind = "C";
    GridControl& grid = context_.grid;
    if (settings_.firstColumn != 0) {
        const std::string key = modGrid::ColumnKey(settings_.firstColumn, CenterKind);
        if (grid.FindColumn(key)) {
            modGrid::FirstColumn(grid, key, NoRedraw);
        }
    }
    if (settings_.firstRow != 0) {
        const std::string key = modGrid::RowKey(settings_.firstRow, CenterKind);
        if (grid.FindRow(key)) {
            modGrid::FirstRow(grid, key, NoRedraw);
        }
    }
    settings_.firstColumn = 0;
    settings_.firstRow = 0;
}

}  // namespace planview
