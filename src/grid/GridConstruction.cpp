// SPDX-License-Identifier: MIT
#include "grid/GridConstruction.h"

#include <string>

#include "automation/BusyScope.h"
#include "grid/IndexAxis.h"
#include "grid/LoaderSupport.h"
#include "grid/Selection.h"
#include "grid/TrackOrder.h"

namespace planview {

void GridConstruction::CreateEmpty() {
    modGrid& driver = context_.driver;
    driver.Destructor(NoRedraw);
    driver.CreateLabelled();
    driver.CreatePalette();
    driver.DoubleBuffering(1, NoRedraw);
    driver.MovePermission(settings_.moveAllowed, NoRedraw);
    driver.ResizePermission(settings_.resizeAllowed, NoRedraw);
    driver.DragDrop(settings_.dragMode, NoRedraw);
    driver.BackgroundColor({}, settings_.backgroundColor, NoRedraw);
    driver.GridlinesColor(settings_.gridLineColor, NoRedraw);
}

void GridConstruction::CreateFromTables() {
    if (building_) {
        throw AutomationError(AutomationErrorCode::Failed, "The grid is being built already");
    }
    const BusyScope building(building_);
    report_.clear();
    modGrid& driver = context_.driver;
    const GridViewState seen = driver.Grid().ViewState();
    const modGrid::RedrawAtEnd redraw(driver);
    CreateEmpty();
    RunLoaders();
    ArrangeTracks();
    built_();
    driver.Grid().RestoreViewState(seen);
    SelectMarked();
    ScrollToFirst();
    driver.Switch(settings_.switched, NoRedraw);
    driver.LabelColWidth(settings_.labelColumnWidth);
}

void GridConstruction::RunLoaders() {
    // A host may take its tables back, or end the control, while one of them is being read.
    const TableSlots held = context_.tables;
    const LoaderContext context{context_.driver, held, context_.keys, &report_};
    Creation_Columns(context);
    Creation_Rows(context);
    Creation_FixedColumns(context);
    Creation_FixedLines(context);
    FillCells(context);
    FillFixedCells(context);
    CellAttributes(context);
}

void GridConstruction::ArrangeTracks() const {
    const TableSlots held = context_.tables;
    ArrangeAsKept(context_.driver.Grid(), ColumnAxis, held.COLS_INDEX);
    ArrangeAsKept(context_.driver.Grid(), RowAxis, held.LINE_INDEX);
}

/// The marks of a table say which of its headings are selected; a table without the field leaves them as they are.
void GridConstruction::SelectMarked() const {
    const TableSlots held = context_.tables;
    SelectMarkedHeadings(held.COLS_INDEX, ColumnAxis, context_.driver.Grid());
    SelectMarkedHeadings(held.LINE_INDEX, RowAxis, context_.driver.Grid());
}

void GridConstruction::ScrollToFirst() {
    // No position, and one whose column or row the tables no longer have, leaves the grid where it is.
    constexpr std::string_view CenterKind = "C";
    modGrid& driver = context_.driver;
    if (settings_.firstColumn != 0) {
        const std::string key = modGrid::ColumnKey(settings_.firstColumn, CenterKind);
        if (driver.Grid().FindColumn(key)) {
            driver.FirstColumn(key, NoRedraw);
        }
    }
    if (settings_.firstRow != 0) {
        const std::string key = modGrid::RowKey(settings_.firstRow, CenterKind);
        if (driver.Grid().FindRow(key)) {
            driver.FirstRow(key, NoRedraw);
        }
    }
    settings_.firstColumn = 0;
    settings_.firstRow = 0;
}

}  // namespace planview
