// SPDX-License-Identifier: MIT
#include "grid/GridCommands.h"

#include "grid/SelectedCells.h"
#include "grid/Selection.h"
#include "grid/modGrid.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

/// The waiting pointer for as long as the object lives.
class Waiting {
public:
    explicit Waiting(GridControl& grid) : grid_(grid) { grid_.SetWaiting(true); }
    ~Waiting() { grid_.SetWaiting(false); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    GridControl& grid_;
};

}  // namespace

template <class Operation>
void GridCommands::Run(std::string_view command, const Operation& operation) {
    modPlan::TraceWrite("GRIDCTL", "{}", command, "BEGIN");
    const Waiting waiting(grid_);
    modGrid::Redraw(grid_);
    operation();
    modGrid::Redraw(grid_);
    chartStep_();
    hostUpdate_.StartUpdate();
}

void GridCommands::HideColumns() {
    const ViewAction action{"ColsHide", SelectedColumnKeys(grid_), {}, {}};
    Run("#HIDE COLUMNS#", [&] { HideColumn(tables_.COLS_INDEX, grid_); });
    actions_.Did(action);
}

void GridCommands::ShowColumns() {
    const ViewAction action{"ColsShow", SelectedColumnKeys(grid_), {}, {}};
    Run("#SHOW COLUMNS#", [&] { ShowColumn(tables_.COLS_INDEX, grid_); });
    actions_.Did(action);
}

void GridCommands::ShowColumns(const std::vector<std::string>& keys) {
    Run("#SHOW COLUMNS#", [&] { ShowColumn(tables_.COLS_INDEX, grid_, keys); });
    actions_.Did({"ColsShow", keys, {}, {}});
}

void GridCommands::HideRows() {
    const ViewAction action{"RowsHide", {}, SelectedRowKeys(grid_), {}};
    Run("#HIDE ROWS#", [&] { HideRow(tables_.LINE_INDEX, grid_); });
    actions_.Did(action);
}

void GridCommands::ShowRows() {
    const ViewAction action{"RowsShow", {}, SelectedRowKeys(grid_), {}};
    Run("#SHOW ROWS#", [&] { ShowRow(tables_.LINE_INDEX, grid_); });
    actions_.Did(action);
}

void GridCommands::ShowRows(const std::vector<std::string>& keys) {
    Run("#SHOW ROWS#", [&] { ShowRow(tables_.LINE_INDEX, grid_, keys); });
    actions_.Did({"RowsShow", {}, keys, {}});
}

void GridCommands::ResetHeights() {
    Run("#RESET HEIGHT#", [&] {
        RowHeightReset(tables_.LINE_INDEX, grid_, ResetScope::All);
        RowHeightReset(tables_.LINE_INDEX, grid_, ResetScope::Selected);
    });
}

void GridCommands::ResetWidths() {
    Run("#RESET WIDTH#", [&] {
        ColWidthReset(tables_.COLS_INDEX, grid_, ResetScope::All);
        ColWidthReset(tables_.COLS_INDEX, grid_, ResetScope::Selected);
    });
}

}  // namespace planview
