// SPDX-License-Identifier: MIT
#include "qt/grid/GridAccessibleTable.h"

#include <type_traits>
#include <vector>

#include "grid/CellRules.h"

namespace planview {

namespace {

/// Answers a question about the view; a default value where there is none any more. Guarded, because assistive tools
/// ask past the view's event handlers.
template <class Question>
auto ask(GridView* view, Question question) {
    using Answer = std::invoke_result_t<Question&, GridView&>;
    return view ? view->guard().run("Accessible", [&] { return question(*view); }) : Answer{};
}

/// The columns or rows that the screen shows side by side, and those below one another.
GridLine acrossOf(GridView& view) {
    return GridLine(view.geometry().horizontal.layout());
}

GridLine downOf(GridView& view) {
    return GridLine(view.geometry().vertical.layout());
}

/// The track at a place of an axis; -1 is the heading.
std::int32_t trackAt(const GridAxis& axis, int place) {
    return place < 0 ? HeadingTrack : GridLine(axis.layout()).trackAt(place);
}

bool hasHeading(const GridAxis& axis) {
    return !axis.layout().Items(AxisLayout::Area::Leading).empty();
}

bool isIn(const GridAxis& axis, int place) {
    return place < 0 ? place == -1 && hasHeading(axis) : place < GridLine(axis.layout()).size();
}

/// Without the blanks that indent it.
QString textOf(GridView& view, Cell cell) {
    return QString::fromStdString(view.grid().DisplayText(cell)).simplified();
}

/// What a formula computes, or a number beside the planning cells that nobody enters.
bool isComputed(GridView& view, Cell cell) {
    const GridControl& grid = view.grid();
    if (grid.Look(cell).computed) {
        return true;
    }
    return !IsPlanningCell(grid.KeyOf(cell)) && RefusalOf(grid, cell) != Refusal::None &&
           grid.Number(cell, grid.Look(cell)).has_value();
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

/// The places among all columns or all rows of those that an axis shows.
std::vector<int> ordersOf(GridView& view, const GridAxis& axis) {
    const GridLine line(axis.layout());
    std::vector<int> orders;
    for (int place = 0; place < line.size(); ++place) {
        const std::int32_t track = line.trackAt(place);
        orders.push_back(axis.showsColumns() ? view.grid().OrderOf(ColumnId{track})
                                             : view.grid().OrderOf(RowId{track}));
    }
    return orders;
}

std::vector<int> placesIn(const std::vector<int>& orders, int first, int last) {
    std::vector<int> places;
    for (std::size_t i = 0; i < orders.size(); ++i) {
        if (orders[i] >= first && orders[i] <= last) {
            places.push_back(static_cast<int>(i));
        }
    }
    return places;
}

/// The cell that keys go on from: the far end of what Shift has selected.
std::optional<Cell> focusOf(GridView& view) {
    return view.hasFocus() ? view.grid().SelectionEnd() : std::nullopt;
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

void GridAccessibleTable::dropCells() {
    for (const auto& [place, known] : cells_) {
        QAccessible::deleteAccessibleInterface(known.id);
    }
    cells_.clear();
}

QAccessibleInterface* GridAccessibleTable::cell(int row, int column) const {
    return ask(view(), [&](GridView& shown) -> QAccessibleInterface* {
        const GridGeometry& geometry = shown.geometry();
        if (!isIn(geometry.vertical, row) || !isIn(geometry.horizontal, column)) {
            return nullptr;
        }
        const auto known = cells_.find({row, column});
        if (known != cells_.end()) {
            return QAccessible::accessibleInterface(known->second.id);
        }
        auto* made = new GridAccessibleCell(&shown, row, column);  // owned by QAccessible from here on
        const QAccessible::Id id = QAccessible::registerAccessibleInterface(made);
        cells_[{row, column}] = {id, made->text(QAccessible::Name), {}};
        cells_[{row, column}].description = made->text(QAccessible::Description);  // which asks for the headings
        return made;
    });
}

std::vector<GridAccessibleTable::ChangedCell> GridAccessibleTable::takeChangedCells() const {
    std::vector<ChangedCell> changed;
    for (auto& [place, known] : cells_) {
        QAccessibleInterface* const shown = QAccessible::accessibleInterface(known.id);
        const QString text = shown->text(QAccessible::Name);
        if (std::exchange(known.text, text) != text) {
            changed.push_back({shown, QAccessible::NameChanged});
        }
        const QString description = shown->text(QAccessible::Description);
        if (std::exchange(known.description, description) != description) {
            changed.push_back({shown, QAccessible::DescriptionChanged});
        }
    }
    return changed;
}

GridTeller::Places GridAccessibleTable::selectedPlaces(std::size_t most) const {
    return ask(view(), [&](GridView& shown) {
        GridTeller::Places result;
        const GridGeometry& geometry = shown.geometry();
        const GridSelection& selection = shown.grid().Selection();
        if (selection.IsEmpty()) {
            return result;
        }
        const std::vector<int> columns = ordersOf(shown, geometry.horizontal);
        const std::vector<int> rows = ordersOf(shown, geometry.vertical);
        const bool switched = !geometry.horizontal.showsColumns();
        for (const CellRange& range : selection.Ranges()) {
            const std::vector<int> across = switched ? placesIn(columns, range.firstRow, range.lastRow)
                                                     : placesIn(columns, range.firstColumn, range.lastColumn);
            const std::vector<int> down = switched ? placesIn(rows, range.firstColumn, range.lastColumn)
                                                   : placesIn(rows, range.firstRow, range.lastRow);
            if (result.size() + across.size() * down.size() > most) {
                result.clear();
                break;
            }
            for (const int row : down) {
                for (const int column : across) {
                    result.emplace(row, column);
                }
            }
        }
        for (const int column : selectedTracks(shown, geometry.horizontal)) {
            result.emplace(-1, column);
        }
        for (const int row : selectedTracks(shown, geometry.vertical)) {
            result.emplace(row, -1);
        }
        return result;
    });
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
    return ask(view(), [&](GridView& shown) -> QAccessibleInterface* {
        const GridHit hit = shown.hitTest(shown.viewport()->mapFromGlobal(QPoint(x, y)));
        if (hit.place == GridHit::Place::Nothing) {
            return nullptr;
        }
        const bool inTop = hit.place == GridHit::Place::TopHeading || hit.place == GridHit::Place::Corner;
        const bool inLeft = hit.place == GridHit::Place::LeftHeading || hit.place == GridHit::Place::Corner;
        return cell(inTop ? -1 : downOf(shown).placeOf(hit.vertical),
                    inLeft ? -1 : acrossOf(shown).placeOf(hit.horizontal));
    });
}

QAccessibleInterface* GridAccessibleTable::focusChild() const {
    return ask(view(), [&](GridView& shown) -> QAccessibleInterface* {
        const std::optional<Cell> current = focusOf(shown);
        if (!current) {
            return nullptr;
        }
        const GridGeometry& geometry = shown.geometry();
        return cell(downOf(shown).placeOf(geometry.verticalId(*current)),
                    acrossOf(shown).placeOf(geometry.horizontalId(*current)));
    });
}

int GridAccessibleTable::childCount() const {
    return ask(view(), [&](GridView& shown) {
        const GridGeometry& geometry = shown.geometry();
        const bool labelled = hasHeading(geometry.horizontal) && hasHeading(geometry.vertical);
        return labelled ? (rowCount() + 1) * (columnCount() + 1) : 0;
    });
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
    return ask(view(), [](GridView& shown) { return acrossOf(shown).size(); });
}

int GridAccessibleTable::rowCount() const {
    return ask(view(), [](GridView& shown) { return downOf(shown).size(); });
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
    return ask(view(), [&](GridView& shown) {
        QList<QAccessibleInterface*> result;
        if (shown.grid().Selection().IsEmpty()) {
            return result;
        }
        const GridGeometry& geometry = shown.geometry();
        for (int row = 0; row < rowCount(); ++row) {
            for (int column = 0; column < columnCount(); ++column) {
                const Cell place = geometry.cell(acrossOf(shown).trackAt(column), downOf(shown).trackAt(row));
                if (cellSelected(shown, place)) {
                    result.append(cell(row, column));
                }
            }
        }
        return result;
    });
}

int GridAccessibleTable::selectedColumnCount() const {
    return static_cast<int>(selectedColumns().size());
}

int GridAccessibleTable::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

QList<int> GridAccessibleTable::selectedColumns() const {
    return ask(view(), [&](GridView& shown) { return selectedTracks(shown, shown.geometry().horizontal); });
}

QList<int> GridAccessibleTable::selectedRows() const {
    return ask(view(), [&](GridView& shown) { return selectedTracks(shown, shown.geometry().vertical); });
}

bool GridAccessibleTable::isColumnSelected(int column) const {
    return ask(view(), [&](GridView& shown) {
        return column >= 0 && wholeTrackSelected(shown, shown.geometry().horizontal, column);
    });
}

bool GridAccessibleTable::isRowSelected(int row) const {
    return ask(view(),
               [&](GridView& shown) { return row >= 0 && wholeTrackSelected(shown, shown.geometry().vertical, row); });
}

bool GridAccessibleTable::selectRow(int row) {
    return ask(view(), [&](GridView& shown) { return setTrackSelected(shown, shown.geometry().vertical, row, true); });
}

bool GridAccessibleTable::selectColumn(int column) {
    return ask(view(),
               [&](GridView& shown) { return setTrackSelected(shown, shown.geometry().horizontal, column, true); });
}

bool GridAccessibleTable::unselectRow(int row) {
    return ask(view(), [&](GridView& shown) { return setTrackSelected(shown, shown.geometry().vertical, row, false); });
}

bool GridAccessibleTable::unselectColumn(int column) {
    return ask(view(),
               [&](GridView& shown) { return setTrackSelected(shown, shown.geometry().horizontal, column, false); });
}

void GridAccessibleTable::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
    dropCells();
}

// --- One cell

void* GridAccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
}

bool GridAccessibleCell::isValid() const {
    return ask(view_, [&](GridView& shown) {
        return isIn(shown.geometry().vertical, row_) && isIn(shown.geometry().horizontal, column_);
    });
}

template <class Question>
auto GridAccessibleCell::askAboutCell(Question question) const {
    using Answer = std::invoke_result_t<Question&, GridView&, Cell>;
    return ask(view_, [&](GridView& shown) {
        const GridGeometry& geometry = shown.geometry();
        return isValid() ? question(shown, geometry.cell(trackAt(geometry.horizontal, column_),
                                                         trackAt(geometry.vertical, row_)))
                         : Answer{};
    });
}

QAccessibleInterface* GridAccessibleCell::parent() const {
    return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
}

GridAccessibleTable* GridAccessibleCell::gridTable() const {
    return static_cast<GridAccessibleTable*>(parent());
}

QString GridAccessibleCell::text(QAccessible::Text kind) const {
    return askAboutCell([&](GridView& shown, Cell cell) -> QString {
        switch (kind) {
            case QAccessible::Name:
            case QAccessible::Value:
                return textOf(shown, cell);
            case QAccessible::Description:
                return description(shown, cell);
            case QAccessible::Help:
                return QString::fromStdString(shown.grid().Tooltip(cell));
            default:
                return {};
        }
    });
}

/// Where it stands, and what its marks say to the eye.
QString GridAccessibleCell::description(GridView& view, Cell cell) const {
    QStringList parts;
    if (row_ >= 0 && column_ >= 0) {
        parts << gridTable()->rowDescription(row_) << gridTable()->columnDescription(column_);
        if (view.isPending(cell)) {
            parts << QStringLiteral("changed");
        }
        if (isComputed(view, cell)) {
            parts << QStringLiteral("computed");
        }
    } else {
        parts << view.rowMark(cell);
    }
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QRect GridAccessibleCell::rect() const {
    return askAboutCell([](GridView& shown, Cell cell) {
        const QRect inViewport = shown.cellRect(cell);
        return inViewport.isEmpty() ? QRect()
                                    : QRect(shown.viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size());
    });
}

QAccessible::Role GridAccessibleCell::role() const {
    return row_ < 0 ? QAccessible::ColumnHeader : column_ < 0 ? QAccessible::RowHeader : QAccessible::Cell;
}

QAccessible::State GridAccessibleCell::state() const {
    QAccessible::State state;
    const bool known = askAboutCell([&](GridView& shown, Cell cell) {
        state.selectable = true;
        state.focusable = row_ >= 0 && column_ >= 0;
        state.selected = isSelected();
        state.focused = focusOf(shown) == cell;
        state.readOnly = row_ < 0 || column_ < 0 || shown.grid().Look(cell).readOnly;
        state.offscreen = shown.cellRect(cell).isEmpty();
        return true;
    });
    state.invalid = !known;
    return state;
}

QList<QAccessibleInterface*> GridAccessibleCell::columnHeaderCells() const {
    return {gridTable()->cell(-1, column_)};
}

QList<QAccessibleInterface*> GridAccessibleCell::rowHeaderCells() const {
    return {gridTable()->cell(row_, -1)};
}

bool GridAccessibleCell::isSelected() const {
    return askAboutCell([](GridView& shown, Cell cell) { return cellSelected(shown, cell); });
}

}  // namespace planview
