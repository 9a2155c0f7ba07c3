// SPDX-License-Identifier: MIT
#include "qt/grid/GridAccessibleTable.h"

namespace planview {

namespace {

/// The track at a place of an axis; -1 is the heading.
std::int32_t trackAt(const GridAxis& axis, int place) {
    return place < 0 ? HeaderTrack : GridLine(axis.layout()).trackAt(place);
}

bool hasHeading(const GridAxis& axis) {
    return !axis.layout().Items(AxisLayout::Area::Leading).empty();
}

bool isIn(const GridAxis& axis, int place) {
    return place < 0 ? place == -1 && hasHeading(axis) : place < GridLine(axis.layout()).size();
}

QString textOf(GridView& view, Cell cell) {
    return QString::fromStdString(view.grid().DisplayText(cell));
}

bool wholeTrackSelected(GridView& view, const GridAxis& axis, int place) {
    if (!isIn(axis, place)) {
        return false;
    }
    const std::int32_t track = trackAt(axis, place);
    const GridSelection& selection = view.grid().Selection();
    return axis.showsColumns() ? selection.HasColumn(ColumnId{track}) : selection.HasRow(RowId{track});
}

bool setTrackSelected(GridView& view, const GridAxis& axis, int place, bool selected) {
    if (place < 0 || !isIn(axis, place)) {
        return false;
    }
    const std::int32_t track = trackAt(axis, place);
    GridControl& grid = view.grid();
    const CellKey keys =
        axis.showsColumns() ? CellKey{grid.Column(ColumnId{track}).key, {}} : CellKey{{}, grid.Row(RowId{track}).key};
    return (selected ? grid.SetSelection(keys, true) : grid.DeleteSelection(keys, true)) == GridStatus::Ok;
}

QList<int> selectedTracks(GridView& view, const GridAxis& axis) {
    QList<int> result;
    for (int place = 0; place < GridLine(axis.layout()).size(); ++place) {
        if (wholeTrackSelected(view, axis, place)) {
            result.append(place);
        }
    }
    return result;
}

bool cellSelected(GridView& view, Cell cell) {
    const GridControl& grid = view.grid();
    return grid.Selection().HasCell(cell, grid.OrderOf(cell.column), grid.OrderOf(cell.row));
}

}  // namespace

// --- The table

GridAccessibleTable::GridAccessibleTable(GridView* view) : QAccessibleWidget(view, QAccessible::Table) {}

GridAccessibleTable::~GridAccessibleTable() {
    dropCells();
}

GridView* GridAccessibleTable::view() const {
    return static_cast<GridView*>(object());
}

GridLine GridAccessibleTable::columns() const {
    return GridLine(view()->geometry().horizontal.layout());
}

GridLine GridAccessibleTable::rows() const {
    return GridLine(view()->geometry().vertical.layout());
}

void GridAccessibleTable::dropCells() {
    for (const auto& [place, id] : cells_) {
        QAccessible::deleteAccessibleInterface(id);
    }
    cells_.clear();
}

QAccessibleInterface* GridAccessibleTable::cell(int row, int column) const {
    const GridGeometry& geometry = view()->geometry();
    if (!isIn(geometry.vertical, row) || !isIn(geometry.horizontal, column)) {
        return nullptr;
    }
    const auto known = cells_.find({row, column});
    if (known != cells_.end()) {
        return QAccessible::accessibleInterface(known->second);
    }
    auto* made = new GridAccessibleCell(view(), row, column);  // owned by QAccessible from here on
    cells_[{row, column}] = QAccessible::registerAccessibleInterface(made);
    return made;
}

int GridAccessibleTable::childIndex(int row, int column) const {
    return (row + 1) * (columnCount() + 1) + column + 1;
}

void* GridAccessibleTable::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* GridAccessibleTable::child(int index) const {
    const int line = columnCount() + 1;
    return index < 0 ? nullptr : cell(index / line - 1, index % line - 1);
}

QAccessibleInterface* GridAccessibleTable::childAt(int x, int y) const {
    const GridHit hit = view()->hitTest(view()->viewport()->mapFromGlobal(QPoint(x, y)));
    if (hit.place == GridHit::Place::Nothing) {
        return nullptr;
    }
    const bool inTop = hit.place == GridHit::Place::TopHeading || hit.place == GridHit::Place::Corner;
    const bool inLeft = hit.place == GridHit::Place::LeftHeading || hit.place == GridHit::Place::Corner;
    return cell(inTop ? -1 : rows().placeOf(hit.vertical), inLeft ? -1 : columns().placeOf(hit.horizontal));
}

QAccessibleInterface* GridAccessibleTable::focusChild() const {
    const std::optional<Cell> current = view()->grid().CurrentCell();
    if (!current || !view()->hasFocus()) {
        return nullptr;
    }
    const GridGeometry& geometry = view()->geometry();
    return cell(rows().placeOf(geometry.verticalId(*current)), columns().placeOf(geometry.horizontalId(*current)));
}

int GridAccessibleTable::childCount() const {
    const GridGeometry& geometry = view()->geometry();
    const bool labelled = hasHeading(geometry.horizontal) && hasHeading(geometry.vertical);
    return labelled ? (rowCount() + 1) * (columnCount() + 1) : 0;
}

int GridAccessibleTable::indexOfChild(const QAccessibleInterface* child) const {
    const QAccessibleTableCellInterface* inTable =
        child ? const_cast<QAccessibleInterface*>(child)->tableCellInterface() : nullptr;
    return inTable ? childIndex(inTable->rowIndex(), inTable->columnIndex()) : -1;
}

QAccessibleInterface* GridAccessibleTable::cellAt(int row, int column) const {
    return row < 0 || column < 0 ? nullptr : cell(row, column);
}

int GridAccessibleTable::columnCount() const {
    return columns().size();
}

int GridAccessibleTable::rowCount() const {
    return rows().size();
}

QString GridAccessibleTable::columnDescription(int column) const {
    QAccessibleInterface* heading = cell(-1, column);
    return heading ? heading->text(QAccessible::Name) : QString();
}

QString GridAccessibleTable::rowDescription(int row) const {
    QAccessibleInterface* heading = cell(row, -1);
    return heading ? heading->text(QAccessible::Name) : QString();
}

int GridAccessibleTable::selectedCellCount() const {
    return static_cast<int>(selectedCells().size());
}

QList<QAccessibleInterface*> GridAccessibleTable::selectedCells() const {
    QList<QAccessibleInterface*> result;
    const GridGeometry& geometry = view()->geometry();
    if (view()->grid().Selection().IsEmpty()) {
        return result;
    }
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            if (cellSelected(*view(), geometry.cell(columns().trackAt(column), rows().trackAt(row)))) {
                result.append(cell(row, column));
            }
        }
    }
    return result;
}

int GridAccessibleTable::selectedColumnCount() const {
    return static_cast<int>(selectedColumns().size());
}

int GridAccessibleTable::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

QList<int> GridAccessibleTable::selectedColumns() const {
    return selectedTracks(*view(), view()->geometry().horizontal);
}

QList<int> GridAccessibleTable::selectedRows() const {
    return selectedTracks(*view(), view()->geometry().vertical);
}

bool GridAccessibleTable::isColumnSelected(int column) const {
    return column >= 0 && wholeTrackSelected(*view(), view()->geometry().horizontal, column);
}

bool GridAccessibleTable::isRowSelected(int row) const {
    return row >= 0 && wholeTrackSelected(*view(), view()->geometry().vertical, row);
}

bool GridAccessibleTable::selectRow(int row) {
    return setTrackSelected(*view(), view()->geometry().vertical, row, true);
}

bool GridAccessibleTable::selectColumn(int column) {
    return setTrackSelected(*view(), view()->geometry().horizontal, column, true);
}

bool GridAccessibleTable::unselectRow(int row) {
    return setTrackSelected(*view(), view()->geometry().vertical, row, false);
}

bool GridAccessibleTable::unselectColumn(int column) {
    return setTrackSelected(*view(), view()->geometry().horizontal, column, false);
}

void GridAccessibleTable::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
    dropCells();
}

// --- One cell

void* GridAccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
}

bool GridAccessibleCell::isValid() const {
    return view_ && isIn(view_->geometry().vertical, row_) && isIn(view_->geometry().horizontal, column_);
}

Cell GridAccessibleCell::cell() const {
    const GridGeometry& geometry = view_->geometry();
    return geometry.cell(trackAt(geometry.horizontal, column_), trackAt(geometry.vertical, row_));
}

QAccessibleInterface* GridAccessibleCell::parent() const {
    return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
}

GridAccessibleTable* GridAccessibleCell::gridTable() const {
    return static_cast<GridAccessibleTable*>(parent());
}

QString GridAccessibleCell::text(QAccessible::Text kind) const {
    if (!isValid()) {
        return {};
    }
    switch (kind) {
        case QAccessible::Name:
        case QAccessible::Value:
            return textOf(*view_, cell());
        case QAccessible::Description:
            if (row_ >= 0 && column_ >= 0) {
                return gridTable()->rowDescription(row_) + QStringLiteral(", ") +
                       gridTable()->columnDescription(column_);
            }
            return {};
        case QAccessible::Help:
            return QString::fromStdString(view_->grid().Tooltip(cell()));
        default:
            return {};
    }
}

QRect GridAccessibleCell::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect inViewport = view_->cellRect(cell());
    return inViewport.isEmpty() ? QRect()
                                : QRect(view_->viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size());
}

QAccessible::Role GridAccessibleCell::role() const {
    return row_ < 0 ? QAccessible::ColumnHeader : column_ < 0 ? QAccessible::RowHeader : QAccessible::Cell;
}

QAccessible::State GridAccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.selectable = true;
    state.focusable = row_ >= 0 && column_ >= 0;
    state.selected = isSelected();
    state.focused = view_->hasFocus() && view_->grid().CurrentCell() == cell();
    state.readOnly = row_ < 0 || column_ < 0 || view_->grid().Look(cell()).readOnly;
    state.offscreen = view_->cellRect(cell()).isEmpty();
    return state;
}

QList<QAccessibleInterface*> GridAccessibleCell::columnHeaderCells() const {
    return {gridTable()->cell(-1, column_)};
}

QList<QAccessibleInterface*> GridAccessibleCell::rowHeaderCells() const {
    return {gridTable()->cell(row_, -1)};
}

bool GridAccessibleCell::isSelected() const {
    return isValid() && cellSelected(*view_, cell());
}

}  // namespace planview
