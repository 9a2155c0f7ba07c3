// SPDX-License-Identifier: MIT
#include "grid/GridCommands.h"

#include "grid/SelectedCells.h"
#include "grid/Selection.h"
#include "trace/modPlan.h"

namespace planview {

template <class Operation>
void GridCommands::Run(std::string_view command, const Operation& operation) {
    modPlan::TraceWrite("GRIDCTL", "{}", command, "BEGIN");
    const modGrid::WaitingState waiting(driver_, modGrid::Entries::None);
    driver_.Redraw();
    operation();
    driver_.Redraw();
    chartStep_();
    hostUpdate_.StartUpdate();
}

void GridCommands::HideColumns() {
    const ViewAction action{"ColsHide", SelectedColumnKeys(driver_.Grid()), {}, {}};
    Run("#HIDE COLUMNS#", [&] { HideColumn(tables_.COLS_INDEX, driver_); });
    actions_.Did(action);
}

void GridCommands::ShowColumns() {
    const ViewAction action{"ColsShow", SelectedColumnKeys(driver_.Grid()), {}, {}};
    Run("#SHOW COLUMNS#", [&] { ShowColumn(tables_.COLS_INDEX, driver_); });
    actions_.Did(action);
}

void GridCommands::ShowColumns(const std::vector<std::string>& keys) {
    Run("#SHOW COLUMNS#", [&] { ShowColumn(tables_.COLS_INDEX, driver_, keys); });
    actions_.Did({"ColsShow", keys, {}, {}});
}

void GridCommands::HideRows() {
    const ViewAction action{"RowsHide", {}, SelectedRowKeys(driver_.Grid()), {}};
    Run("#HIDE ROWS#", [&] { HideRow(tables_.LINE_INDEX, driver_); });
    actions_.Did(action);
}

void GridCommands::ShowRows() {
    const ViewAction action{"RowsShow", {}, SelectedRowKeys(driver_.Grid()), {}};
    Run("#SHOW ROWS#", [&] { ShowRow(tables_.LINE_INDEX, driver_); });
    actions_.Did(action);
}

void GridCommands::ShowRows(const std::vector<std::string>& keys) {
    Run("#SHOW ROWS#", [&] { ShowRow(tables_.LINE_INDEX, driver_, keys); });
    actions_.Did({"RowsShow", {}, keys, {}});
}

void GridCommands::ResetHeights() {
    Run("#RESET HEIGHT#", [&] {
        RowHeightReset(tables_.LINE_INDEX, driver_, ResetScope::All);
        RowHeightReset(tables_.LINE_INDEX, driver_, ResetScope::Selected);
    });
}

void GridCommands::ResetWidths() {
    Run("#RESET WIDTH#", [&] {
        ColWidthReset(tables_.COLS_INDEX, driver_, ResetScope::All);
        ColWidthReset(tables_.COLS_INDEX, driver_, ResetScope::Selected);
    });
}

}  // namespace planview
