// SPDX-License-Identifier: MIT
#include "grid/CellRules.h"

#include "automation/Numbers.h"

namespace planview {

bool IsPlanningCell(CellKeyView keys) noexcept {
    return keys.column.starts_with("COL") && keys.row.starts_with("ROW");
}

Refusal RefusalOf(const GridControl& grid, Cell cell) {
    if (grid.IsReadOnly()) {
        return Refusal::TableReadOnly;
    }
    if (grid.Column(cell.column).key == LabelColumnKey || grid.Row(cell.row).key == HeadingRowKey) {
        return Refusal::Heading;
    }
    const CellLook look = grid.Look(cell);
    if (look.textLine) {
        return Refusal::TextLine;
    }
    if (look.readOnly) {
        return look.computed ? Refusal::Computed : Refusal::ReadOnly;
    }
    return Refusal::None;
}

Refusal RefusalOf(const GridControl& grid, Cell cell, std::string_view text) {
    const Refusal refusal = RefusalOf(grid, cell);
    const CellKeyView keys{grid.Column(cell.column).key, grid.Row(cell.row).key};
    if (refusal != Refusal::None || text.empty() || !IsPlanningCell(keys)) {
        return refusal;
    }
    return TryParseNumber(text) ? Refusal::None : Refusal::NoNumber;
}

std::string_view RefusalText(Refusal refusal) noexcept {
    switch (refusal) {
        case Refusal::None:
            return "";
        case Refusal::ReadOnly:
            return "This cell is read-only.";
        case Refusal::Computed:
            return "This cell is computed. Change the cells that it is computed from.";
        case Refusal::TextLine:
            return "This line carries text and takes no values.";
        case Refusal::Heading:
            return "Headings cannot be edited here.";
        case Refusal::TableReadOnly:
            return "This table is open for reading only.";
        case Refusal::NoNumber:
            return "This is not a number. Enter digits with a point or a comma, or nothing.";
    }
    return "";
}

}  // namespace planview
